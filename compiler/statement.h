// A statement of emitted code, and where its line can be broken.

#ifndef VANTIRO_COMPILER_STATEMENT_H_
#define VANTIRO_COMPILER_STATEMENT_H_

#include <cstddef>
#include <string>
#include <vector>

namespace vantiro {
namespace compiler {

// Its tokens by their positions. Knows what the templates need, no more.
class Statement {
 public:
  struct Token {
    std::string text;
    bool follows_space;
  };

  explicit Statement(const std::string& text);

  size_t size() const { return tokens_.size(); }
  // Empty behind the last token.
  const std::string& Text(size_t i) const;
  bool FollowsSpace(size_t i) const { return tokens_[i].follows_space; }

  // Whether the name of a declared function begins at token `i`.
  bool IsFunctionName(size_t i) const { return is_function_ && i == name_; }
  // The same for anything declared.
  bool IsDeclaredName(size_t i) const { return name_ > 0 && i == name_; }

  // Parentheses and angle brackets.
  bool OpensAngle(size_t i) const;
  bool Opens(size_t i) const;
  bool Closes(size_t i) const;

  bool IsMemberAccess(size_t i) const;
  // Behind the member, or the call of it, that token `i` accesses.
  size_t EndOfMember(size_t i) const;
  // The operator, not the sign of an rvalue reference.
  bool IsAnd(size_t i) const;
  bool HasAnd() const;
  // Only "+", "!=" and "==".
  bool IsBinary(size_t i) const;
  // Only "&", "*" and "!".
  bool IsUnary(size_t i) const;
  // Whether token `i` is the first one of an operand that follows no operator.
  bool StartsExpression(size_t i) const;

  // The penalty of a break before token `i`, 0 if there can be none.
  int BreakPenalty(size_t i) const;

 private:
  bool IsName(size_t i) const;
  size_t Closing(size_t open) const;
  size_t FindDeclaredName() const;
  bool DeclaresFunction() const;
  bool IsLastMemberAccess(size_t i) const;
  bool IsParameterName(size_t i) const;
  int CountArguments(size_t begin) const;
  bool IsTemplateArgumentOfCall(size_t i) const;

  const std::vector<Token> tokens_;
  const size_t name_;
  const bool is_function_;
};

}  // namespace compiler
}  // namespace vantiro

#endif  // VANTIRO_COMPILER_STATEMENT_H_
