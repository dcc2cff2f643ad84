// The instances that stand for absent messages.

#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/stubs/common.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>

#include "all_units.h"
#include "mixed.pb.h"
#include "tests/contract/fill.h"
#include "tests/support/bytes.h"
#include "tests/support/types.h"

namespace vantiro {
namespace tests {
namespace {

using z3a_debug_data::z3abase::RegionDimension;

// In a process forked off before the other tests have set anything up.
TEST(DefaultInstancesDeathTest, AreWholeAtFirstUse) {
  const auto ask = [] {
    const RegionDimension& region = RegionDimension::default_instance();
    std::cerr << region.GetTypeName() << '\n';
    std::exit(&region != &RegionDimension::default_instance());
  };
  EXPECT_EXIT(ask(), testing::ExitedWithCode(0),
              "z3a_debug_data.z3abase.RegionDimension");
  // Here a constructor sets up the class and all that it depends on.
  const auto construct = [] {
    const Mixed mixed;
    std::cerr << mixed.one().child().GetTypeName() << '\n';
    std::exit(mixed.one().child().text().empty() ? 0 : 1);
  };
  EXPECT_EXIT(construct(), testing::ExitedWithCode(0), "vantiro.tests.Leaf");
}

TEST(DefaultInstances, MakeOrdinaryEmptyObjectsByNew) {
  for (const Type& type : AllTypes()) {
    SCOPED_TRACE(type.name);
    const MessageLite& instance = type.default_instance();
    EXPECT_TRUE(instance.IsInitialized());
    const std::unique_ptr<MessageLite> made(instance.New());
    EXPECT_NE(made.get(), &instance);
    EXPECT_EQ(made->GetTypeName(), type.name);
    EXPECT_EQ(made->ByteSizeLong(), 0u);
    EXPECT_TRUE(made->ParseFromString(UnknownField(1)));
    EXPECT_EQ(ToHex(made->SerializeAsString()), ToHex(UnknownField(1)));
    EXPECT_EQ(ToHex(instance.SerializeAsString()), "");
  }
}

// Its pointers to sub-messages are set, unlike those of any other object.
template <typename T, typename Sub>
void ExpectHasNone(bool (T::*has)() const, const Sub& (T::*get)() const) {
  const T& instance = T::default_instance();
  T merged;
  merged.MergeFrom(instance);
  for (const T* message : {&instance, static_cast<const T*>(&merged)}) {
    EXPECT_FALSE((message->*has)());
    EXPECT_EQ(&(message->*get)(), &Sub::default_instance());
  }
  EXPECT_FALSE((T(instance).*has)()) << "of a copy";
}

// Asked directly: a whole serialisation would drop what the size doesn't count.
TEST(DefaultInstances, WriteNothing) {
  for (const Type& type : AllTypes()) {
    std::string bytes;
    {
      google::protobuf::io::StringOutputStream stream(&bytes);
      CodedOutputStream output(&stream);
      EXPECT_EQ(type.default_instance().ByteSizeLong(), 0u) << type.name;
      type.serialize_with_cached_sizes(type.default_instance(), &output);
    }
    EXPECT_EQ(ToHex(bytes), "") << type.name;
  }
}

TEST(DefaultInstances, ReadAsHavingNoSubMessages) {
  ExpectHasNone(&EveryKind::has_child, &EveryKind::child);
  ExpectHasNone(&ArenaLess::has_child, &ArenaLess::child);
#define VANTIRO_SUB(type, full_name, number, name, sub) \
  {                                                     \
    SCOPED_TRACE(full_name "." #name);                  \
    ExpectHasNone(&type::has_##name, &type::name);      \
  }
#include "all_types.inc"
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
