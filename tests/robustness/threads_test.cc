// The first use of every type and of every enum's names, from many threads at
// once, and then all that threads may do side by side.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <random>
#include <thread>
#include <vector>

#include "all_types.h"
#include "tests/support/bytes.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

constexpr unsigned kThreads = 8;

// Runs `work` on all threads, started at the same moment; each gets its number.
void Race(const std::function<void(unsigned)>& work) {
  std::atomic<unsigned> waiting{0};
  std::vector<std::thread> threads;
  for (unsigned i = 0; i < kThreads; ++i) {
    threads.emplace_back([&, i] {
      ++waiting;
      while (waiting < kThreads) std::this_thread::yield();
      work(i);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

// Runs `work` on all threads, each of which has to see the same addresses.
template <typename Address>
void ExpectTheSame(const std::function<std::vector<Address>(unsigned)>& work) {
  std::vector<std::vector<Address>> seen(kThreads);
  Race([&](unsigned thread) { seen[thread] = work(thread); });
  for (const auto& addresses : seen) EXPECT_EQ(addresses, seen[0]);
}

TEST(FirstUse, FromManyThreadsInitialisesEachTypeOnce) {
  const std::vector<Type>& types = AllTypes();
  ExpectTheSame<const MessageLite*>([&types](unsigned thread) {
    std::vector<size_t> order(types.size());
    for (size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::shuffle(order.begin(), order.end(), std::mt19937(thread));
    std::vector<const MessageLite*> instances(types.size());
    for (const size_t i : order) {
      EXPECT_EQ(types[i].New()->ByteSizeLong(), 0u);
      instances[i] = &types[i].default_instance();
      EXPECT_EQ(instances[i]->GetTypeName(), types[i].name);
    }
    return instances;
  });
}

// The addresses of the names of the first few values of all enums.
std::vector<const std::string*> EnumNames(unsigned /*thread*/) {
  std::vector<const std::string*> names;
  for (int value = 0; value < 8; ++value) {
#define VANTIRO_ENUM(type, full_name, scope, name) \
  names.push_back(&scope::name##_Name(static_cast<type>(value)));
#include "type_table.inc"
  }
  return names;
}

TEST(FirstUse, FromManyThreadsMakesEachEnumsNamesOnce) {
  ExpectTheSame<const std::string*>(EnumNames);
}

void ReadAndWrite(const std::string& name) {
  const std::string bytes = ReadData("records/" + name + ".bin");
  const Owned message = FindType(name).New();
  EXPECT_TRUE(message->ParseFromString(bytes));
  EXPECT_TRUE(AreSame(message->SerializeAsString(), bytes));
}

void ReadWhatIsShared() {
  for (const Type& type : AllTypes()) {
    EXPECT_EQ(type.default_instance().GetTypeName(), type.name);
    EXPECT_EQ(type.default_instance().SerializeAsString(), "");
  }
  EXPECT_FALSE(EnumNames(0)[0]->empty());
}

TEST(Threads, UseRecordsOfTheirOwnAndReadWhatIsShared) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(3);
  Race([end](unsigned thread) {
    while (std::chrono::steady_clock::now() < end) {
      if (thread % 2 == 0) {
        ReadAndWrite(thread % 4 == 0 ? "z3a_debug_data.zaf.DebugExif"
                                     : "z3a_debug_data.zabc.DebugExif");
      } else {
        ReadWhatIsShared();
      }
    }
  });
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
