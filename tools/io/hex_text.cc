#include "tools/io/hex_text.h"

#include <cctype>
#include <charconv>
#include <cstdint>
#include <regex>
#include <vector>

#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

// An offset has more digits than a group of bytes.
constexpr size_t kMinOffsetDigits = 6;

struct Token {
  // The digits, without 0x or \x.
  std::string_view digits;
  size_t column;
  bool has_prefix;
};

bool IsDigit(char c) {
  return std::isxdigit(static_cast<unsigned char>(c)) != 0;
}

bool IsSeparator(char c) {
  return std::isspace(static_cast<unsigned char>(c)) != 0 ||
         std::string_view(",:;\"").find(c) != std::string_view::npos;
}

class HexReader {
 public:
  explicit HexReader(std::string_view text) : text_(text) {}

  std::string Read() {
    CutArray();
    size_t begin = 0;
    while (begin <= text_.size()) {
      const size_t end = std::min(text_.find('\n', begin), text_.size());
      line_ = text_.substr(begin, end - begin);
      column_ = begin == 0 ? first_column_ : 1;
      ReadLine();
      ++line_number_;
      begin = end + 1;
    }
    --line_number_;
    if (is_repeating_) Fail(1, "no offset after *");
    if (word_count_ > 1 && long_word_column_ > 0) {
      line_number_ = long_word_line_;
      Fail(long_word_column_, "numbers of several bytes have no known order");
    }
    return std::move(bytes_);
  }

 private:
  [[noreturn]] void Fail(size_t column, const std::string& what) const {
    throw HexError("line " + std::to_string(line_number_) + ", column " +
                   std::to_string(column) + ": " + what);
  }

  // Leaves what is between the braces of an array.
  void CutArray() {
    const size_t open = text_.find('{');
    if (open == std::string_view::npos) return;
    const size_t close = text_.find('}', open);
    for (const char c : text_.substr(0, open + 1)) {
      first_column_ = c == '\n' ? 1 : first_column_ + 1;
      line_number_ += c == '\n' ? 1 : 0;
    }
    if (close == std::string_view::npos) Fail(first_column_ - 1, "no } for {");
    text_ = text_.substr(open + 1, close - open - 1);
    is_array_ = true;
  }

  void Skip(size_t size) {
    line_.remove_prefix(size);
    column_ += size;
  }

  // "11-23 16:21:59.123  1234  1234 D Tag     : " or "D/Tag( 1234): ".
  void SkipLogPrefix() {
    static const std::regex kPrefix(
        R"(^(\d\d-\d\d \d\d:\d\d:\d\d\.\d+\s+)"
        R"((\d+\s+\d+\s+[VDIWEF]\s+[^:]*|[VDIWEF]/[^:]*)|[VDIWEF]/[^:]*\(\s*\d+\)): ?)");
    std::cmatch match;
    const char* const end = line_.data() + line_.size();
    if (line_.find(':') != std::string_view::npos &&
        std::regex_search(line_.data(), end, match, kPrefix)) {
      Skip(static_cast<size_t>(match.length()));
    }
  }

  void ReadLine() {
    if (line_.substr(0, 12) == "--------- be") return;
    SkipLogPrefix();
    while (!line_.empty() && IsSeparator(line_.front())) Skip(1);
    while (!line_.empty() && IsSeparator(line_.back())) line_.remove_suffix(1);
    const size_t comment = line_.find("//");
    line_ = line_.substr(0, comment);
    if (line_.empty()) return;
    if (line_ == "*" && is_dump_) {
      is_repeating_ = true;
    } else if (!ReadDumpLine()) {
      if (is_dump_) Fail(column_, "expected an offset");
      for (const Token& token : Tokens(line_, column_)) AddToken(token);
    }
  }

  // A line that begins with an offset. False if it does not.
  bool ReadDumpLine() {
    size_t digits = 0;
    while (digits < line_.size() && IsDigit(line_[digits])) ++digits;
    if (digits < kMinOffsetDigits) return false;
    const std::string_view offset = line_.substr(0, digits);
    const bool is_xxd = line_.substr(digits, 1) == ":";
    std::string_view rest = line_.substr(digits + (is_xxd ? 1 : 0));
    size_t column = column_ + line_.size() - rest.size();
    while (!rest.empty() && rest.front() == ' ') {
      rest.remove_prefix(1);
      ++column;
    }
    // The column of characters.
    if (is_xxd) rest = rest.substr(0, rest.find("  "));
    rest = rest.substr(0, rest.find_first_of("|>"));
    const std::vector<Token> tokens = Tokens(rest, column);
    if (!is_xxd && !IsDumpOfBytes(tokens)) return false;
    CheckOffset(offset);
    last_ = bytes_.size();
    for (const Token& token : tokens) AddToken(token);
    is_dump_ = true;
    return true;
  }

  // The last line of a dump has an offset only.
  bool IsDumpOfBytes(const std::vector<Token>& tokens) const {
    if (tokens.empty()) return is_dump_;
    for (const Token& token : tokens) {
      if (token.digits.size() != 2 || token.has_prefix) return false;
    }
    return true;
  }

  // The first line of a dump may have any offset; od writes octal ones.
  void CheckOffset(std::string_view digits) {
    for (const int base : bases_) {
      uint64_t offset;
      const char* const end = digits.data() + digits.size();
      const auto result = std::from_chars(digits.data(), end, offset, base);
      if (result.ec != std::errc() || result.ptr != end) continue;
      if (!is_dump_) {
        starts_[base / 16] = offset;
        continue;
      }
      if (is_repeating_ && Repeat(offset - starts_[base / 16])) return;
      if (offset - starts_[base / 16] == bytes_.size()) {
        if (bytes_.size() > last_ + 7) bases_ = {base};
        return;
      }
    }
    if (is_dump_) {
      Fail(column_, "the offset does not follow from the lines before");
    }
  }

  // Adds copies of the last line up to `size` bytes.
  bool Repeat(uint64_t size) {
    constexpr uint64_t kMaxSize = uint64_t{1} << 30;
    const std::string line = bytes_.substr(last_);
    if (size > kMaxSize || size <= bytes_.size() ||
        (size - bytes_.size()) % line.size() != 0) {
      return false;
    }
    while (bytes_.size() < size) bytes_ += line;
    is_repeating_ = false;
    return true;
  }

  std::vector<Token> Tokens(std::string_view text, size_t column) const {
    std::vector<Token> tokens;
    for (size_t at = 0; at < text.size();) {
      if (IsSeparator(text[at])) {
        ++at;
        continue;
      }
      const std::string_view start = text.substr(at, 2);
      const bool has_prefix = start == "0x" || start == "0X" || start == "\\x";
      const size_t begin = at + (has_prefix ? 2 : 0);
      size_t end = begin;
      while (end < text.size() && IsDigit(text[end]) &&
             (start != "\\x" || end < begin + 2)) {
        ++end;
      }
      if (end == begin) Fail(column + begin, "not a hexadecimal digit");
      tokens.push_back(
          {text.substr(begin, end - begin), column + at, has_prefix});
      at = end;
    }
    return tokens;
  }

  void AddToken(const Token& token) {
    ++word_count_;
    if (is_array_ && !token.has_prefix) {
      Fail(token.column, "a number in an array without 0x is decimal");
    }
    if (token.has_prefix && token.digits.size() > 2) {
      long_word_line_ = line_number_;
      long_word_column_ = token.column;
    }
    if (token.has_prefix && token.digits.size() == 1) {
      ParseHex('0' + std::string(token.digits), &bytes_);
    } else if (!ParseHex(token.digits, &bytes_)) {
      Fail(token.column, "an odd number of hexadecimal digits");
    }
  }

  std::string_view text_;
  size_t line_number_ = 1;
  size_t first_column_ = 1;
  std::string_view line_;
  // Of the beginning of `line_`.
  size_t column_ = 1;
  std::string bytes_;
  bool is_array_ = false;
  size_t word_count_ = 0;
  // Where a number of several bytes is, as it is in an array of words.
  size_t long_word_line_ = 0;
  size_t long_word_column_ = 0;
  // In a dump: the bases that the offsets can have, the offset of the first
  // line in each, the size up to the last line, and whether * came last.
  bool is_dump_ = false;
  std::vector<int> bases_ = {16, 8};
  uint64_t starts_[2] = {0, 0};
  size_t last_ = 0;
  bool is_repeating_ = false;
};

}  // namespace

std::string ReadHexText(std::string_view text) {
  return HexReader(text).Read();
}

}  // namespace tools
}  // namespace vantiro
