#include "bench/report.h"

#include <optional>
#include <string>

#include "bench/table.h"

namespace vantiro {
namespace bench {
namespace {

std::string Ratio(const Measurement& measurement, size_t variant, size_t to) {
  return Fixed(measurement.costs[variant].value / measurement.costs[to].value,
               2);
}

std::string Throughput(const Measurement& measurement) {
  if (measurement.measured.operation == "new_delete") return "";
  return Fixed(
      static_cast<double>(measurement.size) * 1e3 / measurement.costs[0].value,
      0);
}

std::string Percent(const std::optional<double>& growth) {
  return growth ? Fixed(*growth * 100, 1) + " %" : "new";
}

// The rows of one operation after another, each with the heading and a row of
// means. `make_row` gives a measurement's cells, `make_means` an operation's,
// if there are any.
template <typename MakeRow, typename MakeMeans>
std::vector<Row> GroupedRows(const std::vector<Measurement>& measurements,
                             Row heading, const MakeRow& make_row,
                             const MakeMeans& make_means) {
  std::vector<Row> rows;
  for (size_t i = 0; i < measurements.size(); ++i) {
    const std::string& operation = measurements[i].measured.operation;
    if (i == 0 || measurements[i - 1].measured.operation != operation) {
      heading[0] = operation;
      rows.push_back(heading);
    }
    rows.push_back(make_row(measurements[i]));
    if (i + 1 == measurements.size() ||
        measurements[i + 1].measured.operation != operation) {
      const Row means = make_means(operation);
      if (!means.empty()) rows.push_back(means);
      rows.push_back({""});
    }
  }
  return rows;
}

}  // namespace

void PrintTimes(const std::vector<Measurement>& measurements) {
  const Row heading = {"",          "bytes",       "ns",
                       "MB/s",      "/ stock",     "symbolic / stock",
                       "memcpy ns", "allocations", "of stock",
                       "allocated", "of stock"};
  const auto make_row = [](const Measurement& measurement) -> Row {
    const Cost& ours = measurement.costs[0];
    const Cost& stock = measurement.costs[1];
    return {"  " + measurement.measured.workload.name,
            std::to_string(measurement.size),
            Fixed(ours.value, 0),
            Throughput(measurement),
            Ratio(measurement, 0, 1),
            Ratio(measurement, 2, 1),
            Fixed(measurement.memcpy_time, 1),
            std::to_string(ours.allocations.count),
            std::to_string(stock.allocations.count),
            std::to_string(ours.allocations.size),
            std::to_string(stock.allocations.size)};
  };
  const auto make_means = [&](const std::string& operation) -> Row {
    return {"  geometric mean",
            "",
            "",
            "",
            Fixed(MeanRatio(measurements, operation, 0, 1), 2),
            Fixed(MeanRatio(measurements, operation, 2, 1), 2)};
  };
  PrintTable(GroupedRows(measurements, heading, make_row, make_means));
}

void PrintInstructions(const std::vector<Measurement>& measurements,
                       const Baseline* baseline) {
  const bool has_stock =
      !measurements.empty() && measurements[0].costs.size() > 1;
  Row heading = {"", "bytes", "instructions", "allocations"};
  if (baseline != nullptr) {
    heading.insert(heading.end(), {"instructions +", "allocations +"});
  }
  if (has_stock) heading.insert(heading.end(), {"/ stock", "symbolic / stock"});
  const auto make_row = [&](const Measurement& measurement) {
    Row row = {"  " + measurement.measured.workload.name,
               std::to_string(measurement.size),
               Fixed(measurement.costs[0].value, 0),
               std::to_string(measurement.costs[0].allocations.count)};
    if (baseline != nullptr) {
      row.push_back(Percent(baseline->InstructionGrowth(measurement)));
      row.push_back(Percent(baseline->AllocationGrowth(measurement)));
    }
    if (has_stock) {
      row.push_back(Ratio(measurement, 0, 1));
      row.push_back(Ratio(measurement, 2, 1));
    }
    return row;
  };
  const auto make_means = [&](const std::string& operation) {
    Row row;
    if (!has_stock) return row;
    row = {"  geometric mean", "", "", ""};
    if (baseline != nullptr) row.insert(row.end(), {"", ""});
    row.push_back(Fixed(MeanRatio(measurements, operation, 0, 1), 2));
    row.push_back(Fixed(MeanRatio(measurements, operation, 2, 1), 2));
    return row;
  };
  PrintTable(GroupedRows(measurements, heading, make_row, make_means));
}

void PrintLibraries(const std::vector<Library>& libraries) {
  std::vector<Row> rows = {{"library", "text", "data", "bss", "relocations",
                            "by name", "stripped", "dlopen us"}};
  for (const Library& library : libraries) {
    rows.push_back({"  " + library.variant, std::to_string(library.text_size),
                    std::to_string(library.data_size),
                    std::to_string(library.bss_size),
                    std::to_string(library.relocation_count),
                    std::to_string(library.named_relocation_count),
                    std::to_string(library.stripped_size),
                    Fixed(library.load_time / 1e3, 0)});
  }
  rows.push_back({""});
  PrintTable(rows);
}

void PrintObjectSizes(const std::vector<ObjectSize>& sizes) {
  std::vector<Row> rows = {{"sizeof", "ours", "stock"}};
  for (const ObjectSize& size : sizes) {
    rows.push_back({"  " + size.root, std::to_string(size.ours),
                    std::to_string(size.stock)});
  }
  PrintTable(rows);
}

}  // namespace bench
}  // namespace vantiro
