#include "compiler/fields/repeated_varint.h"

namespace vantiro {
namespace compiler {

std::string RepeatedVarintField::PayloadSize() const {
  return std::string("WireFormatLite::") + kind_.name + "Size(" +
         descriptor()->name() + "_)";
}

std::string RepeatedVarintField::WriteFunction() const {
  return "frame::WritePackedVarints<" + holes().at("tag_value") + ", " +
         kind_.stored_type + ", frame::" + kind_.to_varint + ">";
}

std::string RepeatedVarintField::ReadPackedFunction() const {
  return std::string("frame::ReadPacked<frame::") + kind_.name + ">";
}

std::string RepeatedVarintField::ReadUnpackedFunction() const {
  return std::string("frame::ReadUnpacked<frame::") + kind_.name + ">";
}

std::string RepeatedBoolField::PayloadSize() const {
  return "static_cast<size_t>(" + descriptor()->name() + "_.size())";
}

}  // namespace compiler
}  // namespace vantiro
