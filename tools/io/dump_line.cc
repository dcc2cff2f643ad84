#include "tools/io/dump_line.h"

#include <algorithm>
#include <string>

namespace vantiro {
namespace tools {
namespace {

// What stands in the column of characters.
std::string Characters(std::string_view bytes) {
  std::string text(bytes);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '.');
  return text;
}

// Where the column of characters begins: after "|" or ">", after two spaces if
// the offset has a colon, otherwise after three.
size_t FindCharacters(std::string_view text, bool has_colon) {
  if (has_colon) return std::min(text.find("  "), text.size());
  const size_t mark = text.find_first_of("|>");
  return std::min({mark, text.find("   "), text.size()});
}

}  // namespace

std::optional<DumpLine> SplitDumpLine(std::string_view line) {
  const bool has_prefix = line.substr(0, 2) == "0x";
  const size_t begin = has_prefix ? 2 : 0;
  const size_t digits = CountHexDigits(line.substr(begin));
  if (digits < kMinOffsetDigits) return std::nullopt;
  const std::string_view after = line.substr(begin + digits);
  const bool has_colon = after.substr(0, 1) == ":";
  if (has_prefix && !has_colon) return std::nullopt;
  std::string_view rest = after.substr(has_colon ? 1 : 0);
  if (!rest.empty() && !IsSpace(rest.front())) return std::nullopt;
  while (!rest.empty() && IsSpace(rest.front())) rest.remove_prefix(1);
  const size_t characters = FindCharacters(rest, has_colon);
  return DumpLine{line.substr(begin, digits), has_colon,
                  rest.substr(0, characters), rest.substr(characters)};
}

bool AreCharactersOf(std::string_view bytes, std::string_view column) {
  const bool is_ascii = std::all_of(column.begin(), column.end(), [](char c) {
    return static_cast<unsigned char>(c) < 0x80;
  });
  column = TrimRight(column);
  if (column.empty() || !is_ascii) return true;
  const std::string expected = Characters(bytes);
  size_t begin = column.find_first_not_of(' ');
  const char mark = column[begin];
  if (mark == '|' || mark == '>') {
    const std::string_view marked = column.substr(begin + 1);
    if (marked.substr(0, bytes.size()) == expected) return true;
  }
  const std::string_view visible = TrimRight(expected);
  if (column.size() < visible.size()) return false;
  begin = column.size() - visible.size();
  return column.substr(begin) == visible &&
         column.substr(0, begin).find_first_not_of(' ') ==
             std::string_view::npos;
}

size_t CountHexDigits(std::string_view text) {
  return static_cast<size_t>(
      std::find_if_not(text.begin(), text.end(), IsHexDigit) - text.begin());
}

std::string_view TrimRight(std::string_view text) {
  while (!text.empty() && IsSpace(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace tools
}  // namespace vantiro
