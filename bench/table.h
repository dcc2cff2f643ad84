// Columns of text, aligned.

#ifndef VANTIRO_BENCH_TABLE_H_
#define VANTIRO_BENCH_TABLE_H_

#include <string>
#include <vector>

namespace vantiro {
namespace bench {

using Row = std::vector<std::string>;

// The first column to the left, the others to the right. A row of one cell is a
// title that no column has to hold.
void PrintTable(const std::vector<Row>& rows);

std::string Fixed(double value, int decimals);

}  // namespace bench
}  // namespace vantiro

#endif  // VANTIRO_BENCH_TABLE_H_
