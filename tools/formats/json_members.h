// The members of a record's JSON that are not fields.

#ifndef VANTIRO_TOOLS_FORMATS_JSON_MEMBERS_H_
#define VANTIRO_TOOLS_FORMATS_JSON_MEMBERS_H_

namespace vantiro {
namespace tools {

constexpr char kUnknownMember[] = "@unknown";
constexpr char kNanMember[] = "@nan";
constexpr char kNotUtf8Member[] = "@not_utf8";
constexpr char kErrorMember[] = "@error";

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_JSON_MEMBERS_H_
