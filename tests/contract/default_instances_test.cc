// The instances that stand for absent messages.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/stubs/common.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

#include "all_types.h"
#include "tests/support/bytes.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

// In a process that is forked before the other tests use any class: a
// constructor initialises the class and all that it depends on.
TEST(DefaultInstancesDeathTest, AreCompleteForTheFirstObject) {
  const auto construct = [] {
    const Mixed mixed;
    std::cerr << mixed.one().child().GetTypeName() << '\n';
    std::exit(mixed.one().child().text().empty() ? 0 : 1);
  };
  EXPECT_EXIT(construct(), testing::ExitedWithCode(0), "vantiro.tests.Leaf");
}

TEST(DefaultInstances, AreEmptyAndStayEmpty) {
  for (const Type& type : AllTypes()) {
    SCOPED_TRACE(type.name);
    const MessageLite& instance = type.default_instance();
    EXPECT_TRUE(instance.IsInitialized());
    const Owned made(instance.New());
    EXPECT_NE(made.get(), &instance);
    EXPECT_TRUE(made->ParseFromString(FromHex("f8 3f 01")));
    EXPECT_EQ(made->ByteSizeLong(), 3u);
    // Not as a whole: that would drop what the size does not count.
    std::string bytes;
    {
      google::protobuf::io::StringOutputStream stream(&bytes);
      CodedOutputStream output(&stream);
      EXPECT_EQ(instance.ByteSizeLong(), 0u);
      type.serialize_with_cached_sizes(instance, &output);
    }
    EXPECT_TRUE(AreSame(bytes, ""));
  }
}

// Its pointers to sub-messages are set, unlike those of any other object.
TEST(DefaultInstances, HaveNoSubMessages) {
  for (const Type& type : AllTypes()) {
    const MessageLite& instance = type.default_instance();
    const Owned copy(type.copy(instance));
    const Owned merged = type.New();
    type.merge_from(merged.get(), instance);
    const MessageLite* const messages[] = {&instance, copy.get(), merged.get()};
    for (const auto& [number, field] : type.fields) {
      if (field.kind != Kind::MESSAGE) continue;
      for (const MessageLite* const message : messages) {
        EXPECT_EQ(field.count(*message), 0) << type.name << "." << field.name;
      }
    }
  }
}

TEST(DefaultInstancesDeathTest, EndWithTheRuntimesShutdown) {
  const auto shut_down = [] {
    for (const Type& type : AllTypes()) type.default_instance();
    Level_Name(LEVEL_HIGH);
    google::protobuf::ShutdownProtobufLibrary();
    std::exit(0);
  };
  EXPECT_EXIT(shut_down(), testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace tests
}  // namespace vantiro
