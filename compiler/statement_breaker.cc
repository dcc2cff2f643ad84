#include "compiler/statement_breaker.h"

#include <algorithm>
#include <cctype>
#include <climits>
#include <map>
#include <tuple>
#include <vector>

namespace vantiro {
namespace compiler {
namespace {

// Penalties of clang-format's Google style. That of a break depends on its
// place (BreakPenalty); each level of nesting adds kNestingPenalty, and the
// first break of a level kFirstBreakPenalty.
constexpr int kExcessPenalty = 1000000;
constexpr int kNestingPenalty = 20;
constexpr int kFirstBreakPenalty = 15;
constexpr int kParenthesisNesting = 1;
constexpr int kAngleNesting = 1;

// clang-format leaves no shorter return type on a line of its own.
constexpr int kMinReturnTypeColumn = 6;

struct Token {
  std::string text;
  bool follows_space;
};

bool IsNameCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

size_t EndOfToken(const std::string& text, size_t begin) {
  if (text[begin] == '"') return text.find('"', begin + 1) + 1;
  for (const char* sign : {"::", "->", "&&", "+=", "!=", "==", "/*", "*/"}) {
    if (text.compare(begin, 2, sign) == 0) return begin + 2;
  }
  size_t end = begin + 1;
  if (!IsNameCharacter(text[begin])) return end;
  while (end < text.size() && IsNameCharacter(text[end])) ++end;
  const bool is_operator = text.compare(begin, end - begin, "operator") == 0;
  return is_operator ? text.find('(', end) : end;
}

std::vector<Token> Tokenize(const std::string& text) {
  std::vector<Token> tokens;
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

// The parentheses or angle brackets around a token; the outermost level is the
// statement itself.
struct Level {
  // The column of lines that start at this level.
  int indent;
  // Where the last line or argument starts, from which the lines of a level
  // inside are indented.
  int last_start;
  int nesting;
  bool is_broken;
  bool is_broken_at_comma;
  bool is_argument_broken;
};

// The statement up to a token.
struct State {
  int column = 0;
  int penalty = 0;
  std::vector<Level> levels;
  bool is_type_broken = false;
  // For each token the column of the line that it starts, or -1.
  std::vector<int> columns;
};

class StatementBreaker {
 public:
  StatementBreaker(int indentation, const std::string& statement)
      : indentation_(indentation),
        tokens_(Tokenize(statement)),
        name_(FindDeclaredName()),
        is_function_(name_ > 0 && DeclaresFunction()) {}

  std::string Break() {
    State start;
    start.column = indentation_;
    start.levels.push_back(
        {indentation_, indentation_, 1, false, false, false});
    Search(0, start);
    std::string result(static_cast<size_t>(indentation_), ' ');
    for (size_t i = 0; i < tokens_.size(); ++i) {
      if (best_columns_[i] >= 0) {
        result += '\n';
        result.append(static_cast<size_t>(best_columns_[i]), ' ');
      } else if (tokens_[i].follows_space) {
        result += ' ';
      }
      result += tokens_[i].text;
    }
    return result + '\n';
  }

 private:
  const std::string& Text(size_t i) const {
    static const std::string none;
    return i < tokens_.size() ? tokens_[i].text : none;
  }

  bool IsName(size_t i) const {
    return !Text(i).empty() && IsNameCharacter(Text(i)[0]);
  }

  // The operator, not the sign of an rvalue reference.
  bool IsAnd(size_t i) const {
    return Text(i) == "&&" && tokens_[i].follows_space;
  }
  bool OpensAngle(size_t i) const {
    return Text(i) == "<" && !tokens_[i].follows_space;
  }
  bool Opens(size_t i) const { return Text(i) == "(" || OpensAngle(i); }
  bool Closes(size_t i) const { return Text(i) == ")" || Text(i) == ">"; }

  size_t Closing(size_t open) const {
    int depth = 0;
    for (size_t i = open; i < tokens_.size(); ++i) {
      if (Opens(i)) ++depth;
      if (Closes(i) && --depth == 0) return i;
    }
    return tokens_.size();
  }

  // The position of the declared name, with its scopes, after its type; 0 if
  // nothing is declared.
  size_t FindDeclaredName() const {
    for (const char* word : {"return", "class", "struct", "using"}) {
      if (Text(0) == word) return 0;
    }
    for (size_t i = 1; i < tokens_.size(); ++i) {
      if (OpensAngle(i)) i = Closing(i);
      const std::string& text = Text(i);
      if (text != "(" && text != "=" && text != "[" && text != ";") continue;
      size_t name = i - 1;
      while (name >= 2 && Text(name - 1) == "::" && IsName(name - 2) &&
             !tokens_[name - 1].follows_space) {
        name -= 2;
      }
      const bool has_type = name > 0 && tokens_[name].follows_space &&
                            Text(name - 1) != "explicit";
      return has_type ? name : 0;
    }
    return 0;
  }

  // Whether the declared name is that of a function. The parentheses after that
  // of a variable begin with an expression, not with a parameter.
  bool DeclaresFunction() const {
    size_t i = name_;
    while (i < tokens_.size() && Text(i) != "(" && Text(i) != "=") ++i;
    const bool is_expression =
        IsName(i + 1) && (Text(i + 2) == "," || Text(i + 2) == ")");
    return Text(i) == "(" && !is_expression;
  }

  // The penalty of a break before token `i`, 0 if there can be none.
  int BreakPenalty(size_t i) const {
    const std::string& before = Text(i - 1);
    const std::string& text = Text(i);
    if (Closes(i)) return 0;
    if (before == "(") {
      return is_function_ ? 100 : CountArguments(i) > 1 ? 1 : 19;
    }
    if (OpensAngle(i - 1)) return 100;
    if (before == ",") return 1;
    if (before == "=" || before == "+=") return text == "{" ? 0 : 2;
    if (IsAnd(i - 1)) return 5;
    if (text == ":") return 1;
    if (i == name_) return 200;
    if (before == "class") return 600;
    if (before == "::") return i > 1 && IsName(i - 2) ? 500 : 0;
    if (before == ")" && text == "const") return 150;
    if (IsParameterName(i)) return 200;
    return 0;
  }

  // Whether a name follows the "*", "&" or "&&" of its type.
  bool IsParameterName(size_t i) const {
    const std::string& before = Text(i - 1);
    return (before == "*" || before == "&" || before == "&&") && IsName(i) &&
           tokens_[i].follows_space && !tokens_[i - 1].follows_space;
  }

  int CountArguments(size_t begin) const {
    int count = 1;
    for (size_t i = begin; i < tokens_.size() && Text(i) != ")"; ++i) {
      if (Text(i) == ",") ++count;
      if (Text(i) == "(") i = Closing(i);
    }
    return count;
  }

  void Search(size_t i, const State& state) {
    if (state.penalty >= best_penalty_ || !IsCheapest(i, state)) return;
    if (i == tokens_.size()) {
      best_penalty_ = state.penalty;
      best_columns_ = state.columns;
      return;
    }
    if (!MustStartLine(i, state)) Search(i + 1, Append(i, state, false));
    const bool is_return_type_short =
        i == name_ && is_function_ && state.column < kMinReturnTypeColumn;
    if (i > 0 && BreakPenalty(i) > 0 && !is_return_type_short) {
      Search(i + 1, Append(i, state, true));
    }
  }

  // Nothing follows template arguments or a function's argument on its last
  // line if they have several.
  bool MustStartLine(size_t i, const State& state) const {
    if (i == 0) return false;
    return (i == name_ && state.is_type_broken) ||
           (Text(i - 1) == "," && state.levels.back().is_argument_broken);
  }

  // Whether no other way to this state had as low a penalty.
  bool IsCheapest(size_t i, const State& state) {
    std::vector<int> key = {static_cast<int>(i), state.column};
    for (const Level& level : state.levels) {
      key.insert(key.end(), {level.indent, level.last_start,
                             static_cast<int>(level.is_broken),
                             static_cast<int>(level.is_broken_at_comma),
                             static_cast<int>(level.is_argument_broken)});
    }
    const auto [known, is_new] = penalties_.emplace(key, state.penalty);
    if (!is_new && known->second <= state.penalty) return false;
    known->second = state.penalty;
    return true;
  }

  // `state` after token `i`, which starts a line or continues one.
  State Append(size_t i, State state, bool starts_line) const {
    if (Closes(i) && state.levels.size() > 1) state.levels.pop_back();
    if (starts_line) {
      StartLine(i, &state);
    } else {
      ContinueLine(i, &state);
    }
    const int excess_before = std::max(state.column - kColumnLimit, 0);
    state.column += static_cast<int>(Text(i).size());
    const int excess = std::max(state.column - kColumnLimit, 0);
    state.penalty += kExcessPenalty * (excess - excess_before);
    if (Opens(i)) {
      const Level& outer = state.levels.back();
      const int nesting =
          outer.nesting + (OpensAngle(i) ? kAngleNesting : kParenthesisNesting);
      state.levels.push_back(
          {state.column, outer.last_start, nesting, false, false, false});
    }
    return state;
  }

  void StartLine(size_t i, State* state) const {
    Level& level = state->levels.back();
    const bool is_after_comma = Text(i - 1) == ",";
    bool& is_broken =
        is_after_comma ? level.is_broken_at_comma : level.is_broken;
    state->penalty += BreakPenalty(i) + kNestingPenalty * level.nesting +
                      (is_broken ? 0 : kFirstBreakPenalty);
    is_broken = true;
    if (Opens(i - 1)) {
      const Level& outer = state->levels[state->levels.size() - 2];
      level.indent = outer.last_start + kContinuationIndent;
    }
    if (OpensAngle(i - 1)) state->is_type_broken = true;
    for (Level& outer : state->levels) {
      const bool is_innermost = &outer == &level;
      if (!is_innermost || !(is_after_comma || Opens(i - 1))) {
        outer.is_argument_broken = true;
      }
    }
    state->column = ColumnOfLine(i, level);
    level.last_start = state->column;
    state->columns.push_back(state->column);
  }

  int ColumnOfLine(size_t i, const Level& level) const {
    const std::string& before = Text(i - 1);
    if (Opens(i - 1) || before == "," || IsAnd(i - 1)) return level.indent;
    const int start = std::max(level.last_start, level.indent);
    return i == name_ && is_function_ ? start : start + kContinuationIndent;
  }

  void ContinueLine(size_t i, State* state) const {
    if (tokens_[i].follows_space) ++state->column;
    state->columns.push_back(-1);
    if (i == 0) return;
    Level& level = state->levels.back();
    const std::string& before = Text(i - 1);
    const bool is_first = Opens(i - 1) && !Closes(i);
    if (is_first || before == "return") level.indent = state->column;
    if (before == "," || IsAnd(i - 1)) level.last_start = state->column;
  }

  const int indentation_;
  const std::vector<Token> tokens_;
  const size_t name_;
  const bool is_function_;
  int best_penalty_ = INT_MAX;
  std::vector<int> best_columns_;
  std::map<std::vector<int>, int> penalties_;
};

}  // namespace

std::string BreakStatement(int indentation, const std::string& statement) {
  return StatementBreaker(indentation, statement).Break();
}

}  // namespace compiler
}  // namespace vantiro
