#include <google/protobuf/io/coded_stream.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>
#include <google/protobuf/wire_format.h>

#include "tools/record/record.h"
#include "tools/wire/scalar.h"

namespace vantiro {
namespace tools {
namespace {

using google::protobuf::internal::WireFormatLite;
using google::protobuf::io::CodedOutputStream;
using google::protobuf::io::StringOutputStream;

void WriteDelimited(int number, const std::string& bytes,
                    CodedOutputStream* output) {
  output->WriteTag(WireFormatLite::MakeTag(
      number, WireFormatLite::WIRETYPE_LENGTH_DELIMITED));
  output->WriteVarint32(static_cast<uint32_t>(bytes.size()));
  output->WriteString(bytes);
}

void WriteElement(const FieldDescriptor& field, uint64_t bits,
                  CodedOutputStream* output) {
  if (IsFloat(field)) {
    output->WriteLittleEndian32(static_cast<uint32_t>(bits));
  } else {
    output->WriteVarint64(ToVarint(field, bits));
  }
}

std::string PackedRun(const FieldValue& value) {
  std::string run;
  StringOutputStream stream(&run);
  CodedOutputStream output(&stream);
  for (const uint64_t bits : value.scalars()) {
    WriteElement(value.field(), bits, &output);
  }
  output.Trim();
  return run;
}

// Default values and empty repeated fields are not written.
void WriteField(const FieldValue& value, CodedOutputStream* output) {
  const FieldDescriptor& field = value.field();
  for (const Record& message : value.messages()) {
    WriteDelimited(field.number(), Serialize(message), output);
  }
  if (!value.string_value().empty()) {
    WriteDelimited(field.number(), value.string_value(), output);
  }
  if (value.scalars().empty()) return;
  if (field.is_repeated()) {
    WriteDelimited(field.number(), PackedRun(value), output);
  } else if (!IsZero(field, value.scalars()[0])) {
    output->WriteTag(WireFormatLite::MakeTag(
        field.number(), IsFloat(field) ? WireFormatLite::WIRETYPE_FIXED32
                                       : WireFormatLite::WIRETYPE_VARINT));
    WriteElement(field, value.scalars()[0], output);
  }
}

}  // namespace

std::string Serialize(const Record& record) {
  std::string bytes;
  {
    StringOutputStream stream(&bytes);
    CodedOutputStream output(&stream);
    for (const auto& entry : record.fields) WriteField(entry.second, &output);
  }
  return bytes + Serialize(record.unknown);
}

std::string Serialize(const google::protobuf::UnknownFieldSet& unknown) {
  std::string bytes;
  {
    StringOutputStream stream(&bytes);
    CodedOutputStream output(&stream);
    google::protobuf::internal::WireFormat::SerializeUnknownFields(unknown,
                                                                   &output);
  }
  return bytes;
}

}  // namespace tools
}  // namespace vantiro
