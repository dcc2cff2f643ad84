#include "tools/io/hex_text.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "tools/io/dump_line.h"
#include "tools/io/dump_offsets.h"
#include "tools/io/log_prefix.h"
#include "tools/wire/hex.h"

namespace vantiro {
namespace tools {
namespace {

constexpr char kOffsetOrBytes[] = "an offset, or bytes?";
constexpr char kNoOrder[] = "numbers of several bytes have no known order";

struct Token {
  // The digits, without 0x or \x.
  std::string_view digits;
  size_t column;
  bool has_prefix;
};

bool IsSeparator(char c) {
  return IsSpace(c) ||
         std::string_view(",:;\"'").find(c) != std::string_view::npos;
}

class HexReader {
 public:
  explicit HexReader(std::string_view text) : text_(text) {}

  std::string Read() {
    CutCode();
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
    if (word_count_ > 1) FailAt(long_word_, kNoOrder);
    FailAt(doubtful_offset_, kOffsetOrBytes);
    return std::move(bytes_);
  }

 private:
  struct Place {
    size_t line;
    size_t column;
  };

  [[noreturn]] void Fail(size_t column, const std::string& what) const {
    throw HexError("line " + std::to_string(line_number_) + ", column " +
                   std::to_string(column) + ": " + what);
  }
  void FailAt(const std::optional<Place>& place, const std::string& what) {
    if (!place.has_value()) return;
    line_number_ = place->line;
    Fail(place->column, what);
  }

  // Leaves what is between the braces or brackets of an array, or the quotes of
  // a string literal. In a dump these are characters of the data.
  void CutCode() {
    std::string_view text = text_;
    while (IsLogDivider(text)) {
      text.remove_prefix(std::min(text.find('\n'), text.size() - 1) + 1);
    }
    text.remove_prefix(LogPrefixSize(text));
    while (!text.empty() && IsSpace(text.front())) text.remove_prefix(1);
    if (SplitDumpLine(text.substr(0, text.find('\n'))).has_value()) return;
    for (const char* const brackets : {"{}", "\"\"", "''", "[]"}) {
      const size_t open = text_.find(brackets[0]);
      if (open == std::string_view::npos) continue;
      is_array_ = brackets[0] != brackets[1];
      CutBetween(open, brackets[1]);
      return;
    }
  }

  void CutBetween(size_t open, char closing) {
    const size_t close =
        is_array_ ? text_.find(closing, open) : text_.rfind(closing);
    for (const char c : text_.substr(0, open + 1)) {
      first_column_ = c == '\n' ? 1 : first_column_ + 1;
      line_number_ += c == '\n' ? 1 : 0;
    }
    if (close == std::string_view::npos || close == open) {
      Fail(first_column_ - 1,
           std::string("no ") + closing + " for " + text_[open]);
    }
    text_ = text_.substr(open + 1, close - open - 1);
  }

  void Skip(size_t size) {
    line_.remove_prefix(size);
    column_ += size;
  }

  void ReadLine() {
    if (IsLogDivider(line_)) return;
    Skip(LogPrefixSize(line_));
    while (!line_.empty() && IsSeparator(line_.front())) Skip(1);
    line_ = TrimRight(line_);
    if (line_.empty()) return;
    if (line_ == "*" && offsets_.HasFirst()) {
      is_repeating_ = true;
    } else if (!ReadDumpLine()) {
      if (offsets_.HasFirst()) Fail(column_, "expected an offset");
      ReadBytes();
    }
  }

  void ReadBytes() {
    const std::vector<Token> tokens =
        Tokens(line_.substr(0, line_.find("//")), column_);
    CheckGroups(tokens);
    for (const Token& token : tokens) AddToken(token);
  }

  // Only the last one of several groups of bytes can have fewer digits.
  void CheckGroups(const std::vector<Token>& tokens) const {
    if (tokens.size() < 2 || tokens.front().has_prefix) return;
    const size_t size = tokens.front().digits.size();
    if (size < kMinOffsetDigits) return;
    const bool are_equal =
        std::all_of(tokens.begin() + 1, tokens.end() - 1,
                    [size](const Token& t) { return t.digits.size() == size; });
    const std::string_view first = tokens.front().digits;
    const bool is_zero = first.find_first_not_of('0') == std::string_view::npos;
    const size_t last = tokens.back().digits.size();
    if (!are_equal || last > size || (is_zero && last < size)) {
      Fail(tokens.front().column, kOffsetOrBytes);
    }
  }

  // A line that begins with an offset. False if it does not.
  bool ReadDumpLine() {
    const std::optional<DumpLine> line = SplitDumpLine(line_);
    if (!line.has_value()) return false;
    const bool is_first = !offsets_.HasFirst();
    if (!line->has_colon && CountHexDigits(line->bytes) != 2) {
      // The last line of a dump has an offset only.
      if (!line->bytes.empty() || is_first) return false;
    }
    const auto begin = static_cast<size_t>(line->bytes.data() - line_.data());
    const std::vector<Token> tokens = Tokens(line->bytes, column_ + begin);
    if (is_first && !bytes_.empty()) Fail(column_, kOffsetOrBytes);
    CheckOffset(line->offset);
    last_ = bytes_.size();
    for (const Token& token : tokens) {
      if (!line->has_colon && token.digits.size() != 2) {
        Fail(token.column, "not one byte");
      }
      AddToken(token);
    }
    const std::string added = bytes_.substr(last_);
    if (!AreCharactersOf(added, line->characters)) {
      Fail(column_ + begin + line->bytes.size(),
           "the characters are not those of the bytes");
    }
    // A later line shows whether it is an offset.
    doubtful_offset_.reset();
    const bool is_zero =
        line->offset.find_first_not_of('0') == std::string_view::npos;
    if (is_first && !is_zero && !line->has_colon && line->characters.empty()) {
      doubtful_offset_ = {line_number_, column_};
    }
    return true;
  }

  void CheckOffset(std::string_view digits) {
    if (is_repeating_) {
      const std::string line = bytes_.substr(last_);
      const std::optional<size_t> size =
          line.empty()
              ? std::nullopt
              : offsets_.AddAfterRepetition(digits, bytes_.size(), line.size());
      while (size.has_value() && bytes_.size() < *size) bytes_ += line;
      is_repeating_ = false;
      if (size.has_value()) return;
    } else if (offsets_.Add(digits, bytes_.size())) {
      return;
    }
    Fail(column_, "the offset does not follow from the lines before");
  }

  std::vector<Token> Tokens(std::string_view text, size_t column) const {
    std::vector<Token> tokens;
    for (size_t at = 0; at < text.size();) {
      const bool is_dash = text[at] == '-' && at > 0 &&
                           IsHexDigit(text[at - 1]) &&
                           CountHexDigits(text.substr(at + 1)) > 0;
      if (is_dash || IsSeparator(text[at])) {
        ++at;
        continue;
      }
      if (is_array_ && text.substr(at, 6) == "(byte)") {
        at += 6;
        continue;
      }
      const std::string_view start = text.substr(at, 2);
      const bool has_prefix = start == "0x" || start == "0X" || start == "\\x";
      const size_t begin = at + (has_prefix ? 2 : 0);
      size_t digits = CountHexDigits(text.substr(begin));
      if (start == "\\x") digits = std::min<size_t>(digits, 2);
      if (digits == 0) Fail(column + begin, "not a hexadecimal digit");
      tokens.push_back({text.substr(begin, digits), column + at, has_prefix});
      at = begin + digits;
    }
    return tokens;
  }

  void AddToken(const Token& token) {
    ++word_count_;
    if (is_array_ && !token.has_prefix) {
      Fail(token.column, "a number in an array without 0x is decimal");
    }
    if (token.has_prefix && token.digits.size() > 2) {
      long_word_ = {line_number_, token.column};
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
  // A number of several bytes, as it is in an array of words.
  std::optional<Place> long_word_;
  // In a dump: the offsets, one that may be bytes, the size up to the last
  // line, and whether * came last.
  DumpOffsets offsets_;
  std::optional<Place> doubtful_offset_;
  size_t last_ = 0;
  bool is_repeating_ = false;
};

}  // namespace

std::string ReadHexText(std::string_view text) {
  return HexReader(text).Read();
}

}  // namespace tools
}  // namespace vantiro
