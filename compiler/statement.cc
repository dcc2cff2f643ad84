#include "compiler/statement.h"

#include <cctype>

namespace vantiro {
namespace compiler {
namespace {

bool IsNameCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

size_t EndOfToken(const std::string& text, size_t begin) {
  if (text[begin] == '"') return text.find('"', begin + 1) + 1;
  if (text.compare(begin, 2, "[[") == 0) return text.find("]]", begin) + 2;
  for (const char* sign : {"::", "->", "&&", "+=", "!=", "==", "/*", "*/"}) {
    if (text.compare(begin, 2, sign) == 0) return begin + 2;
  }
  size_t end = begin + 1;
  if (!IsNameCharacter(text[begin])) return end;
  while (end < text.size() && IsNameCharacter(text[end])) ++end;
  const bool is_operator = text.compare(begin, end - begin, "operator") == 0;
  return is_operator ? text.find('(', end) : end;
}

std::vector<Statement::Token> Tokenize(const std::string& text) {
  std::vector<Statement::Token> tokens;
  bool follows_space = false;
  for (size_t begin = 0; begin < text.size();) {
    if (text[begin] == ' ') {
      follows_space = true;
      ++begin;
      continue;
    }
    const size_t end = EndOfToken(text, begin);
    tokens.push_back({text.substr(begin, end - begin), follows_space});
    follows_space = false;
    begin = end;
  }
  return tokens;
}

}  // namespace

Statement::Statement(const std::string& text)
    : tokens_(Tokenize(text)),
      name_(FindDeclaredName()),
      is_function_(name_ > 0 && DeclaresFunction()) {}

const std::string& Statement::Text(size_t i) const {
  static const std::string none;
  return i < tokens_.size() ? tokens_[i].text : none;
}

bool Statement::IsName(size_t i) const {
  return !Text(i).empty() && IsNameCharacter(Text(i)[0]);
}

bool Statement::IsAnd(size_t i) const {
  return Text(i) == "&&" && tokens_[i].follows_space;
}

bool Statement::IsMemberAccess(size_t i) const {
  return Text(i) == "." || Text(i) == "->";
}

bool Statement::IsBinary(size_t i) const {
  const std::string& text = Text(i);
  return (text == "+" || text == "!=" || text == "==") &&
         tokens_[i].follows_space;
}

bool Statement::IsUnary(size_t i) const {
  const std::string& text = Text(i);
  return (text == "&" || text == "*" || text == "!") &&
         (tokens_[i].follows_space || Opens(i - 1)) &&
         !tokens_[i + 1].follows_space;
}

bool Statement::OpensAngle(size_t i) const {
  return Text(i) == "<" && !tokens_[i].follows_space;
}

bool Statement::Opens(size_t i) const {
  return Text(i) == "(" || OpensAngle(i);
}
bool Statement::Closes(size_t i) const {
  return Text(i) == ")" || Text(i) == ">";
}

size_t Statement::Closing(size_t open) const {
  int depth = 0;
  for (size_t i = open; i < tokens_.size(); ++i) {
    if (Opens(i)) ++depth;
    if (Closes(i) && --depth == 0) return i;
  }
  return tokens_.size();
}

// The position of the declared name, with its scopes, after its type; 0 if
// nothing is declared.
size_t Statement::FindDeclaredName() const {
  if (Text(1) == "+=") return 0;
  for (const char* word :
       {"return", "delete", "class", "struct", "using", ":"}) {
    if (Text(0) == word) return 0;
  }
  const size_t begin = Text(0) == "[[deprecated]]" ? 1 : 0;
  for (size_t i = begin + 1; i < tokens_.size(); ++i) {
    if (OpensAngle(i)) i = Closing(i);
    const std::string& text = Text(i);
    if (text != "(" && text != "=" && text != "[" && text != ";") continue;
    size_t name = i - 1;
    while (name >= 2 && Text(name - 1) == "::" && IsName(name - 2) &&
           !tokens_[name - 1].follows_space) {
      name -= 2;
    }
    const bool has_type = name > begin && tokens_[name].follows_space &&
                          Text(name - 1) != "explicit";
    return has_type ? name : 0;
  }
  return 0;
}

// Whether the declared name is that of a function. The parentheses after that
// of a variable begin with an expression, not with a parameter.
bool Statement::DeclaresFunction() const {
  size_t i = name_;
  while (i < tokens_.size() && Text(i) != "(" && Text(i) != "=") ++i;
  const bool is_expression =
      IsName(i + 1) && (Text(i + 2) == "," || Text(i + 2) == ")");
  return Text(i) == "(" && !is_expression;
}

int Statement::BreakPenalty(size_t i) const {
  const std::string& before = Text(i - 1);
  const std::string& text = Text(i);
  if (Closes(i)) return 0;
  if (before == "(") {
    return is_function_ ? 100 : CountArguments(i) > 1 ? 1 : 19;
  }
  if (OpensAngle(i - 1)) return 100;
  if (before == ",") return IsTemplateArgumentOfCall(i) ? 30 : 1;
  if (before == "=" || before == "+=") {
    return text != "{" ? 2 : Text(i + 1) == "}" ? 300 : 0;
  }
  if (IsAnd(i - 1)) return 5;
  if (IsBinary(i - 1)) return before == "+" ? 13 : 9;
  if (IsMemberAccess(i)) return IsLastMemberAccess(i) ? 150 : 35;
  if (text == ":") return Text(0) == "enum" ? 0 : 1;
  if (i == name_) return 200;
  if (before == "class") return 600;
  if (before == "::") return i > 1 && IsName(i - 2) ? 500 : 0;
  if (before == ")" && (text == "const" || text == "override")) return 150;
  if (text == "final" && Text(0) == "class") return 100;
  if (IsParameterName(i)) return 200;
  return 0;
}

bool Statement::IsTemplateArgumentOfCall(size_t i) const {
  if (name_ > 0) return false;
  for (size_t open = i; open > 0; --open) {
    if (OpensAngle(open) && Closing(open) > i) {
      return Text(Closing(open) + 1) == "(";
    }
  }
  return false;
}

size_t Statement::EndOfMember(size_t i) const {
  return Text(i + 2) == "(" ? Closing(i + 2) + 1 : i + 2;
}

// Whether no other call follows in the chain.
bool Statement::IsLastMemberAccess(size_t i) const {
  const size_t next = EndOfMember(i);
  return !IsMemberAccess(next) || Text(next - 1) != ")";
}

// Whether a name follows its type.
bool Statement::IsParameterName(size_t i) const {
  const std::string& before = Text(i - 1);
  const bool is_last = Text(i + 1) == "," || Text(i + 1) == ")";
  if (is_function_ && i > name_ + 1 && is_last && IsName(i) &&
      tokens_[i].follows_space && IsName(i - 1)) {
    return true;
  }
  return (before == "*" || before == "&" || before == "&&") && IsName(i) &&
         tokens_[i].follows_space && !tokens_[i - 1].follows_space;
}

int Statement::CountArguments(size_t begin) const {
  int count = 1;
  for (size_t i = begin; i < tokens_.size() && Text(i) != ")"; ++i) {
    if (Text(i) == ",") ++count;
    if (Text(i) == "(") i = Closing(i);
  }
  return count;
}

bool Statement::HasAnd() const {
  for (size_t i = 1; i < tokens_.size(); ++i) {
    if (IsAnd(i)) return true;
  }
  return false;
}

bool Statement::StartsExpression(size_t i) const {
  const std::string& before = Text(i - 1);
  if (Closes(i)) return false;
  return Opens(i - 1) || before == "," || before == "=" || before == "+=" ||
         before == "return";
}

}  // namespace compiler
}  // namespace vantiro
