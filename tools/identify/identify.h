// The likely type of a record.

#ifndef VANTIRO_TOOLS_IDENTIFY_IDENTIFY_H_
#define VANTIRO_TOOLS_IDENTIFY_IDENTIFY_H_

#include <string>
#include <string_view>
#include <vector>

#include "tools/identify/score.h"
#include "tools/schema/schema.h"

namespace vantiro {
namespace tools {

struct Candidate {
  const Descriptor* type;
  Score score;
  // The percentage of the bytes that are in fields of the type.
  int known_percent;
  // What the score is based on.
  std::string reason;
};

// The types, most likely first. Types of equal score have the order of `types`.
std::vector<Candidate> Identify(const std::vector<const Descriptor*>& types,
                                std::string_view bytes);

// Whether the scores are equal.
bool IsTie(const Candidate& a, const Candidate& b);

// Whether the best candidate is likely to be the type, and not only better than
// the others.
bool IsConvincing(const Candidate& best);

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_IDENTIFY_IDENTIFY_H_
