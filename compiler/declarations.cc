#include "compiler/declarations.h"

#include <algorithm>
#include <cctype>

namespace vantiro {
namespace compiler {
namespace {

using Tokens = std::vector<std::string>;
using Token = const std::string*;

bool IsWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

bool IsWord(const std::string& token) { return IsWordCharacter(token[0]); }

bool IsOneOf(const std::string& token,
             const std::vector<std::string>& candidates) {
  return std::find(candidates.begin(), candidates.end(), token) !=
         candidates.end();
}

// The end of the comment, literal, word or sign that starts at `begin`.
// "operator=" is one word.
size_t EndOfToken(const std::string& code, size_t begin) {
  if (code.compare(begin, 2, "//") == 0) return code.find('\n', begin);
  if (code.compare(begin, 2, "/*") == 0) return code.find("*/", begin) + 2;
  if (code.compare(begin, 2, "::") == 0) return begin + 2;
  if (code.compare(begin, 9, "operator=") == 0) return begin + 9;
  if (code[begin] == '"') return code.find('"', begin + 1) + 1;
  size_t end = begin + 1;
  if (!IsWordCharacter(code[begin])) return end;
  while (end < code.size() && IsWordCharacter(code[end])) ++end;
  return end;
}

// The words and signs of `code`, without comments.
Tokens Tokenize(const std::string& code) {
  Tokens tokens;
  for (size_t begin = 0; begin < code.size();) {
    if (std::isspace(static_cast<unsigned char>(code[begin])) != 0) {
      ++begin;
      continue;
    }
    const size_t end = std::min(EndOfToken(code, begin), code.size());
    const std::string token = code.substr(begin, end - begin);
    if (token.compare(0, 2, "//") != 0 && token.compare(0, 2, "/*") != 0) {
      tokens.push_back(token);
    }
    begin = end;
  }
  return tokens;
}

// Behind the bracket that closes the one at `open`.
Token BehindClosing(Token open, Token end) {
  int depth = 0;
  for (Token token = open; token != end; ++token) {
    if (IsOneOf(*token, {"(", "{", "[", "<"}) && *token == *open) ++depth;
    const char* const closing = *open == "("   ? ")"
                                : *open == "{" ? "}"
                                : *open == "[" ? "]"
                                               : ">";
    if (*token == closing && --depth == 0) return token + 1;
  }
  return end;
}

// The first of `signs` in [begin, end) that stands in no bracket, or `end`.
Token FindOutside(Token begin, Token end,
                  const std::vector<std::string>& signs) {
  Token token = begin;
  while (token != end && !IsOneOf(*token, signs)) {
    const bool opens = IsOneOf(*token, {"(", "{", "["});
    token = opens ? BehindClosing(token, end) : token + 1;
  }
  return token;
}

// Behind the ";" or the function body that ends the statement at `begin`.
Token EndOfStatement(Token begin, Token end) {
  const Token sign = FindOutside(begin, end, {"(", "=", "{", ";"});
  if (sign == end || *sign != "(") {
    const Token semicolon = FindOutside(begin, end, {";"});
    return semicolon == end ? end : semicolon + 1;
  }
  const Token behind = FindOutside(begin, end, {"{", ";"});
  if (behind == end) return end;
  return *behind == "{" ? BehindClosing(behind, end) : behind + 1;
}

// The types of the parameters in [begin, end).
std::string ParameterTypes(Token begin, Token end) {
  std::string types;
  while (begin != end) {
    const Token comma = FindOutside(begin, end, {","});
    Token last = FindOutside(begin, comma, {"="}) - 1;
    const bool has_name = last != begin && IsWord(*last) && *(last - 1) != "::";
    if (has_name) --last;
    std::string type;
    for (Token token = begin; token <= last; ++token) type += *token + " ";
    types += (type == ":: int32_t " ? "int " : type) + ",";
    begin = comma == end ? end : comma + 1;
  }
  return types;
}

class Reader {
 public:
  std::vector<Declaration> Read(Token begin, Token end) {
    while (begin != end) {
      if (IsOneOf(*begin, {"public", "protected", "private"})) {
        begin += 2;
        continue;
      }
      const Token next = EndOfStatement(begin, end);
      ReadStatement(begin, next);
      begin = next;
    }
    return std::move(declarations_);
  }

 private:
  void ReadStatement(Token begin, Token end) {
    if (*begin == "[") begin = BehindClosing(begin, end);
    if (*begin == "template") begin = BehindClosing(begin + 1, end);
    while (IsOneOf(*begin,
                   {"constexpr", "explicit", "extern", "inline", "static"})) {
      ++begin;
    }
    if (*begin == "friend") return;
    if (*begin == "typedef" || *begin == "using") {
      Add(*begin == "using" ? begin + 1 : end - 2, Declaration::kOther);
    } else if (IsOneOf(*begin, {"class", "struct", "enum"})) {
      ReadType(begin, end);
    } else {
      ReadFunctionOrVariable(begin, end);
    }
  }

  void ReadType(Token begin, Token end) {
    const bool is_enum = *begin == "enum";
    if (IsWord(begin[1])) {
      Add(begin + 1, is_enum ? Declaration::kOther : Declaration::kClass);
    }
    const Token open = FindOutside(begin, end, {"{"});
    if (open == end) return;
    const Token behind = BehindClosing(open, end);
    if (IsWord(*behind)) Add(behind, Declaration::kOther);
    if (is_enum) ReadValues(open + 1, behind - 1);
  }

  void ReadValues(Token begin, Token end) {
    while (begin != end) {
      Add(begin, Declaration::kOther);
      begin = FindOutside(begin, end, {","});
      if (begin != end) ++begin;
    }
  }

  void ReadFunctionOrVariable(Token begin, Token end) {
    const Token behind = FindOutside(begin, end, {"(", "=", "{", "[", ";"});
    const Token name = behind - 1;
    const bool is_nameless =
        name == begin || name[-1] == "~" || *name == "operator=";
    if (is_nameless) return;
    if (*behind != "(") return Add(name, Declaration::kOther);
    const Token behind_parameters = BehindClosing(behind, end);
    Add(name, Declaration::kFunction,
        ParameterTypes(behind + 1, behind_parameters - 1) +
            (*behind_parameters == "const" ? "const" : ""));
  }

  void Add(Token name, Declaration::Kind kind,
           const std::string& signature = "") {
    declarations_.push_back({*name, kind, signature});
  }

  std::vector<Declaration> declarations_;
};

}  // namespace

std::vector<Declaration> DeclarationsIn(const std::string& code) {
  const Tokens tokens = Tokenize(code);
  return Reader().Read(tokens.data(), tokens.data() + tokens.size());
}

std::vector<Declaration> MembersOfClassIn(const std::string& code) {
  const Tokens tokens = Tokenize(code);
  const Token end = tokens.data() + tokens.size();
  const Token open = std::find(tokens.data(), end, "{");
  return Reader().Read(open + 1, BehindClosing(open, end) - 1);
}

}  // namespace compiler
}  // namespace vantiro
