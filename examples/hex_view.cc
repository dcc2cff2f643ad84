#include "examples/hex_view.h"

#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/wire_format_lite.h>

#include <cstdint>
#include <iomanip>
#include <sstream>

namespace vantiro::examples {
namespace {

using google::protobuf::internal::WireFormatLite;
using google::protobuf::io::CodedInputStream;

std::string ToHex(const std::string& bytes) {
  std::ostringstream hex;
  hex << std::hex << std::setfill('0');
  for (const char byte : bytes) {
    if (hex.tellp() > 0) hex << ' ';
    hex << std::setw(2) << static_cast<int>(static_cast<uint8_t>(byte));
  }
  return hex.str();
}

class Table {
 public:
  Table() {
    Line("bytes", "tag", "field", "wire type") << "value\n";
    Line("-----", "---", "-----", "---------") << "-----\n";
  }

  std::ostream& Line(const std::string& bytes, const std::string& tag,
                     const std::string& field, const std::string& wire_type) {
    return text_ << "  " << std::left << std::setw(24) << bytes << std::setw(5)
                 << tag << std::setw(7) << field << std::setw(20) << wire_type;
  }

  std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
};

class Viewer {
 public:
  explicit Viewer(const std::string& record)
      : record_(record),
        input_(reinterpret_cast<const uint8_t*>(record.data()),
               static_cast<int>(record.size())) {}

  std::string View(const MessageShape& shape) {
    ViewMessage(shape, 0);
    return table_.text();
  }

 private:
  void ViewMessage(const MessageShape& shape, int depth) {
    int start = input_.CurrentPosition();
    while (const uint32_t tag = input_.ReadTag()) {
      ViewField(shape, tag, start, depth);
      start = input_.CurrentPosition();
    }
  }

  void ViewField(const MessageShape& shape, uint32_t tag, int start,
                 int depth) {
    const std::string tag_bytes = BytesFrom(start);
    const int number = WireFormatLite::GetTagFieldNumber(tag);
    const auto known = shape.find(number);
    const FieldShape field =
        known == shape.end() ? FieldShape{"(not known)"} : known->second;
    const auto line = [&](const std::string& wire_type) -> std::ostream& {
      const std::string indent(static_cast<size_t>(2 * depth), ' ');
      return table_.Line(indent + ToHex(BytesFrom(start)), ToHex(tag_bytes),
                         std::to_string(number), wire_type)
             << indent << field.name;
    };
    switch (WireFormatLite::GetTagWireType(tag)) {
      case WireFormatLite::WIRETYPE_VARINT: {
        uint64_t value = 0;
        input_.ReadVarint64(&value);
        line("0 varint") << " = " << value << "\n";
        break;
      }
      case WireFormatLite::WIRETYPE_FIXED32: {
        uint32_t bits = 0;
        input_.ReadLittleEndian32(&bits);
        line("5 32-bit") << " = " << WireFormatLite::DecodeFloat(bits) << "\n";
        break;
      }
      case WireFormatLite::WIRETYPE_LENGTH_DELIMITED: {
        int length = 0;
        input_.ReadVarintSizeAsInt(&length);
        line("2 length-delimited") << ", " << length << " bytes\n";
        if (field.message == nullptr) {
          input_.Skip(length);
          break;
        }
        const auto limit = input_.PushLimit(length);
        ViewMessage(*field.message, depth + 1);
        input_.PopLimit(limit);
        break;
      }
      default:
        WireFormatLite::SkipField(&input_, tag);
        line("other") << "\n";
    }
  }

  std::string BytesFrom(int start) const {
    return record_.substr(
        static_cast<size_t>(start),
        static_cast<size_t>(input_.CurrentPosition() - start));
  }

  const std::string& record_;
  CodedInputStream input_;
  Table table_;
};

}  // namespace

std::string HexView(const std::string& record, const MessageShape& shape) {
  return Viewer(record).View(shape);
}

}  // namespace vantiro::examples
