// Times the library's classes beside those of the installed compiler, batch by
// batch in turns, and prints how much of the latter's time the former take.

#include <google/protobuf/arena.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "bench/classes.h"

namespace vantiro {
namespace bench {
namespace {

// One operation, prepared for one record: what is timed.
using Work = std::function<void()>;

struct Operation {
  const char* name;
  // Gives no work where the class has none for it.
  Work (*prepare)(const Class& type, const std::string& bytes);
};

using Shared = std::shared_ptr<MessageLite>;

Shared Parsed(const Class& type, const std::string& bytes) {
  Shared message(type.create(nullptr));
  if (!message->ParseFromString(bytes)) {
    std::fprintf(stderr, "bench: %s does not parse\n", type.name);
    std::exit(1);
  }
  return message;
}

const std::vector<Operation>& Operations() {
  static const auto* const operations = new std::vector<Operation>{
      {"serialise",
       [](const Class& type, const std::string& bytes) -> Work {
         const Shared message = Parsed(type, bytes);
         const auto out = std::make_shared<std::string>();
         return [=] { message->SerializeToString(out.get()); };
       }},
      {"size",
       [](const Class& type, const std::string& bytes) -> Work {
         const Shared message = Parsed(type, bytes);
         return [=] { message->ByteSizeLong(); };
       }},
      {"parse fresh",
       [](const Class& type, const std::string& bytes) -> Work {
         return [=] {
           const std::unique_ptr<MessageLite> message(type.create(nullptr));
           message->ParseFromString(bytes);
         };
       }},
      {"parse reused",
       [](const Class& type, const std::string& bytes) -> Work {
         const Shared message = Parsed(type, bytes);
         return [=] { message->ParseFromString(bytes); };
       }},
      {"parse arena",
       [](const Class& type, const std::string& bytes) -> Work {
         // Arenas are not for every unit; the heap is the same work for both.
         const auto space = std::make_shared<std::vector<char>>(256 << 10);
         return [=] {
           Arena arena(space->data(), space->size());
           type.create(&arena)->ParseFromString(bytes);
         };
       }},
      {"copy",
       [](const Class& type, const std::string& bytes) -> Work {
         const Shared from = Parsed(type, bytes);
         return [=] {
           const std::unique_ptr<MessageLite> to(type.create(nullptr));
           type.copy_from(to.get(), *from);
         };
       }},
      {"clear, fill",
       [](const Class& type, const std::string&) -> Work {
         if (type.fill == nullptr) return nullptr;
         const Shared message(type.create(nullptr));
         return [=] {
           message->Clear();
           type.fill(message.get());
         };
       }},
  };
  return *operations;
}

double Seconds(const Work& work, int times) {
  const auto start = std::chrono::steady_clock::now();
  for (int i = 0; i < times; ++i) work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start)
      .count();
}

struct Times {
  double ours;
  double stock;
};

// The least of many batches of each, taken in turns.
Times Measure(const Work& ours, const Work& stock, int batches) {
  int times = 1;
  while (Seconds(stock, times) < 1e-3) times *= 2;
  Times least = {1e9, 1e9};
  for (int i = 0; i < batches; ++i) {
    least.ours = std::min(least.ours, Seconds(ours, times) / times);
    least.stock = std::min(least.stock, Seconds(stock, times) / times);
  }
  return least;
}

std::string ReadRecord(const std::string& name) {
  std::ifstream file(std::string(VANTIRO_BENCH_RECORDS) + "/" + name + ".bin",
                     std::ios::binary);
  if (!file) {
    std::fprintf(stderr, "bench: no record of %s\n", name.c_str());
    std::exit(1);
  }
  return {std::istreambuf_iterator<char>(file),
          std::istreambuf_iterator<char>()};
}

void Compare(int batches) {
  std::printf("%-46s", "time of ours / time of stock, ns of ours");
  for (const Operation& operation : Operations()) {
    std::printf(" %18s", operation.name);
  }
  std::printf("\n");
  std::vector<double> logs(Operations().size(), 0);
  std::vector<int> counts(Operations().size(), 0);
  const std::vector<Class> ours = OurClasses();
  const std::vector<Class> stock = StockClasses();
  for (size_t i = 0; i < ours.size(); ++i) {
    const std::string bytes = ReadRecord(ours[i].name);
    std::printf("%-40s %5zu", ours[i].name, bytes.size());
    for (size_t j = 0; j < Operations().size(); ++j) {
      const Work our_work = Operations()[j].prepare(ours[i], bytes);
      const Work stock_work = Operations()[j].prepare(stock[i], bytes);
      if (!our_work) {
        std::printf(" %18s", "");
        continue;
      }
      const Times times = Measure(our_work, stock_work, batches);
      std::printf("    %5.2f %9.0f", times.ours / times.stock,
                  times.ours * 1e9);
      std::fflush(stdout);
      logs[j] += std::log(times.ours / times.stock);
      ++counts[j];
    }
    std::printf("\n");
  }
  std::printf("%-46s", "geometric mean");
  for (size_t j = 0; j < logs.size(); ++j) {
    std::printf("    %5.2f %9s", std::exp(logs[j] / counts[j]), "");
  }
  std::printf("\n");
}

}  // namespace
}  // namespace bench
}  // namespace vantiro

int main(int argc, char* argv[]) {
  const int64_t batches = argc > 1 ? std::strtoll(argv[1], nullptr, 10) : 100;
  if (argc > 2 || batches < 1 || batches > 1000000) {
    std::fprintf(stderr, "usage: bench [BATCHES]\n");
    return 2;
  }
  vantiro::bench::Compare(static_cast<int>(batches));
  return 0;
}
