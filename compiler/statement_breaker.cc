#include "compiler/statement_breaker.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <tuple>
#include <utility>
#include <vector>

#include "compiler/statement.h"

namespace vantiro {
namespace compiler {
namespace {

// Penalties of clang-format's Google style. That of a break depends on its
// place (BreakPenalty); each level of nesting adds kNestingPenalty, and the
// first break of a level kFirstBreakPenalty.
constexpr int64_t kOverflowPenalty = 1000000;
constexpr int64_t kStringPenalty = 1000;
constexpr int kNestingPenalty = 20;
constexpr int kFirstBreakPenalty = 15;
constexpr int kParenthesisNesting = 1;
constexpr int kAngleNesting = 1;

// clang-format leaves no shorter return type on a line of its own.
constexpr int kMinReturnTypeColumn = 6;

using Ints = std::vector<int>;
using Strings = std::vector<std::string>;

// The parentheses or angle brackets around a token; the outermost level is the
// statement itself.
struct Level {
  // The column of lines that start at this level.
  int indent;
  // Where the last line, argument or operand starts, from which the lines of a
  // level inside are indented.
  int last_start;
  // Where an expression of operands starts.
  int expression_start;
  // Where the operand after a unary operator starts, or -1.
  int unary_operand_start;
  // Where the lines of a chain of member accesses start, or -1.
  int chain_start;
  // Whether a chain may be broken: in a call the first argument has to start a
  // line.
  bool may_break_chain;
  bool argument_starts_line;
  int nesting;
  bool is_broken;
  bool is_broken_at_comma;
  bool is_argument_broken;
  bool is_operation_broken;
  bool is_in_middle = false;

  bool operator==(const Level& other) const { return Key() == other.Key(); }

 private:
  std::tuple<int, int, int, int, int, int, bool, bool, bool, bool, bool, bool,
             bool>
  Key() const {
    return {indent,
            last_start,
            expression_start,
            unary_operand_start,
            chain_start,
            nesting,
            may_break_chain,
            argument_starts_line,
            is_broken,
            is_broken_at_comma,
            is_argument_broken,
            is_operation_broken,
            is_in_middle};
  }
};

// How a token was placed: the column of the line that it starts, or -1, and the
// step of the token before, or -1.
struct Step {
  int column_of_line;
  int before;
};

// The statement up to a token.
struct State {
  int column = 0;
  int64_t penalty = 0;
  std::vector<Level> levels;
  bool is_type_broken = false;
  int column_of_line = -1;
  int last_step = -1;
};

// The states that the search keeps for each token: so many that the best way to
// break a statement of the templates is never dropped, and so few that an
// initialiser list of thousands of names takes no longer than its length.
constexpr size_t kMaxStates = 30;

class StatementBreaker {
 public:
  StatementBreaker(int indentation, const std::string& statement)
      : indentation_(indentation), statement_(statement) {}

  std::string Break() {
    State start;
    start.column = indentation_;
    start.levels.push_back({indentation_, indentation_, indentation_, -1, -1,
                            true, true, 1, false, false, false, false});
    const Ints columns = ColumnsOfLines(Search(std::move(start)));
    std::string result(static_cast<size_t>(indentation_), ' ');
    for (size_t i = 0; i < statement_.size(); ++i) {
      if (columns[i] >= 0) {
        result += '\n';
        result.append(static_cast<size_t>(columns[i]), ' ');
      } else if (statement_.FollowsSpace(i)) {
        result += ' ';
      }
      const size_t start_of_line = result.rfind('\n') + 1;
      const size_t column = result.size() - start_of_line;
      const Strings pieces = PiecesOf(i, static_cast<int>(column));
      for (const std::string& piece : pieces) {
        if (&piece != &pieces.front()) {
          result += '\n' + std::string(column, ' ');
        }
        result += piece;
      }
    }
    return result + '\n';
  }

 private:
  // The best state after the last token. Of equal ones the first is the best,
  // and a line is continued before it is broken.
  State Search(State start) {
    std::vector<State> states = {std::move(start)};
    for (size_t i = 0; i < statement_.size(); ++i) {
      std::vector<State> next;
      for (const State& state : states) {
        if (!MustStartLine(i, state)) next.push_back(Append(i, state, false));
        if (MayStartLine(i, state)) next.push_back(Append(i, state, true));
      }
      states = Cheapest(std::move(next));
      for (State& state : states) {
        steps_.push_back({state.column_of_line, state.last_step});
        state.last_step = static_cast<int>(steps_.size()) - 1;
      }
    }
    return *std::min_element(states.begin(), states.end(), IsCheaper);
  }

  static bool IsCheaper(const State& a, const State& b) {
    return a.penalty < b.penalty;
  }

  // Of states that differ in their penalty only the cheapest; of those the
  // cheapest kMaxStates.
  static std::vector<State> Cheapest(std::vector<State> states) {
    std::stable_sort(states.begin(), states.end(), IsCheaper);
    std::vector<State> result;
    for (State& state : states) {
      if (result.size() == kMaxStates) break;
      const bool is_known = std::any_of(
          result.begin(), result.end(), [&state](const State& other) {
            return other.column == state.column &&
                   other.is_type_broken == state.is_type_broken &&
                   other.levels == state.levels;
          });
      if (!is_known) result.push_back(std::move(state));
    }
    return result;
  }

  // For each token the column of the line that it starts, or -1.
  Ints ColumnsOfLines(const State& state) const {
    Ints columns;
    for (int step = state.last_step; step >= 0;) {
      const Step& placed = steps_[static_cast<size_t>(step)];
      columns.push_back(placed.column_of_line);
      step = placed.before;
    }
    std::reverse(columns.begin(), columns.end());
    return columns;
  }

  bool MayStartLine(size_t i, const State& state) const {
    const bool is_return_type_short =
        statement_.IsFunctionName(i) && state.column < kMinReturnTypeColumn;
    const bool is_fixed =
        statement_.IsMemberAccess(i) && !MayBreakChain(i, state.levels.back());
    return i > 0 && statement_.BreakPenalty(i) > 0 &&
           !IsInMiddleOfLine(state) && !is_return_type_short && !is_fixed;
  }

  // Nothing follows template arguments or a function's argument on its last
  // line if they have several.
  bool MustStartLine(size_t i, const State& state) const {
    if (i == 0) return false;
    return (statement_.IsDeclaredName(i) && state.is_type_broken) ||
           ((statement_.Text(i - 1) == "," || statement_.IsAnd(i - 1)) &&
            state.levels.back().is_argument_broken) ||
           (statement_.IsMemberAccess(i) && statement_.Text(i - 1) == ")" &&
            state.levels.back().chain_start >= 0);
  }

  // An argument is broken if the first one starts a line, and if it starts a
  // line itself or is the last one.
  bool MayBreakChain(size_t i, const Level& level) const {
    return level.may_break_chain &&
           (level.argument_starts_line ||
            statement_.Text(statement_.EndOfMember(i)) != ",");
  }

  // Whether the break would be in a call that is an argument, but neither the
  // last one nor the first of its line.
  bool IsInMiddleOfLine(const State& state) const {
    return std::any_of(state.levels.begin(), state.levels.end(),
                       [](const Level& level) { return level.is_in_middle; });
  }

  // Token `i` in the pieces that fit at `column`. Only a string literal can
  // have several; each ends after a character that is no letter or digit.
  Strings PiecesOf(size_t i, int column) const {
    std::string rest = statement_.Text(i);
    if (rest[0] != '"') return {rest};
    Strings pieces;
    // What cannot be parted from the literal.
    int tail = 0;
    for (size_t k = i + 1;
         k < statement_.size() && statement_.Text(k - 1) != ","; ++k) {
      tail += static_cast<int>(statement_.Text(k).size());
    }
    const int size = kColumnLimit - column;
    while (static_cast<int>(rest.size()) + tail > size) {
      const int limit = std::min(size - 1, static_cast<int>(rest.size()) - 2);
      if (limit <= 1) break;
      int end = limit;
      while (end > 1 && std::isalnum(static_cast<unsigned char>(
                            rest[static_cast<size_t>(end - 1)])) != 0) {
        --end;
      }
      if (end <= 1) end = limit;
      pieces.push_back(rest.substr(0, static_cast<size_t>(end)) + '"');
      rest = '"' + rest.substr(static_cast<size_t>(end));
    }
    pieces.push_back(rest);
    return pieces;
  }

  // `state` after token `i`, which starts a line or continues one.
  State Append(size_t i, State state, bool starts_line) const {
    if (statement_.Closes(i) && state.levels.size() > 1) {
      state.levels.pop_back();
    }
    if (starts_line) {
      StartLine(i, &state);
    } else {
      ContinueLine(i, &state);
    }
    const int overflow_before = std::max(state.column - kColumnLimit, 0);
    const Strings pieces = PiecesOf(i, state.column);
    state.penalty += kStringPenalty * static_cast<int64_t>(pieces.size() - 1);
    if (pieces.size() > 1) state.levels.back().is_argument_broken = true;
    state.column += static_cast<int>(pieces.back().size());
    const int overflow = std::max(state.column - kColumnLimit, 0);
    state.penalty += kOverflowPenalty * (overflow - overflow_before);
    if (statement_.Opens(i)) {
      const bool is_in_middle =
          !state.levels.back().argument_starts_line &&
          statement_.Text(statement_.EndOfMember(i - 2)) == ",";
      const Level& outer = state.levels.back();
      const int nesting =
          outer.nesting +
          (statement_.OpensAngle(i) ? kAngleNesting : kParenthesisNesting);
      state.levels.push_back({state.column, outer.last_start, state.column, -1,
                              -1, i > 0 && statement_.Text(i - 1) == "if", true,
                              nesting, false, false, false, false});
      state.levels.back().is_in_middle = is_in_middle;
    }
    return state;
  }

  void StartLine(size_t i, State* state) const {
    Level& level = state->levels.back();
    const bool is_after_comma = statement_.Text(i - 1) == ",";
    bool& is_broken = is_after_comma               ? level.is_broken_at_comma
                      : statement_.IsBinary(i - 1) ? level.is_operation_broken
                                                   : level.is_broken;
    state->penalty += statement_.BreakPenalty(i) +
                      kNestingPenalty * level.nesting +
                      (is_broken ? 0 : kFirstBreakPenalty);
    is_broken = true;
    if (statement_.Opens(i - 1)) {
      const Level& outer = state->levels[state->levels.size() - 2];
      level.indent = outer.last_start + kContinuationIndent;
      level.may_break_chain = true;
    }
    if (is_after_comma) level.argument_starts_line = true;
    if (statement_.OpensAngle(i - 1)) state->is_type_broken = true;
    for (Level& outer : state->levels) {
      const bool is_innermost = &outer == &level;
      if (!is_innermost || !(is_after_comma || statement_.Opens(i - 1))) {
        outer.is_argument_broken = true;
      }
    }
    state->column = ColumnOfLine(i, level);
    if (statement_.IsMemberAccess(i)) {
      level.chain_start = state->column;
    } else {
      level.unary_operand_start = -1;
    }
    if (statement_.StartsExpression(i)) StartExpression(*state, &level);
    level.last_start = state->column;
    state->column_of_line = state->column;
  }

  int ColumnOfLine(size_t i, const Level& level) const {
    const std::string& before = statement_.Text(i - 1);
    if (statement_.Opens(i - 1) || before == "," || statement_.IsAnd(i - 1)) {
      return level.indent;
    }
    if (statement_.IsBinary(i - 1)) {
      const bool is_operand_of_and = before != "+" && statement_.HasAnd();
      return level.expression_start +
             (is_operand_of_and ? kContinuationIndent : 0);
    }
    if (statement_.IsMemberAccess(i)) {
      if (level.chain_start >= 0) return level.chain_start;
      return (level.unary_operand_start >= 0 ? level.unary_operand_start
                                             : level.last_start) +
             kContinuationIndent;
    }
    if (before == "=" && level.chain_start >= 0) {
      return indentation_ + kContinuationIndent;
    }
    const int start = std::max(level.last_start, level.indent);
    return statement_.IsFunctionName(i) ? start : start + kContinuationIndent;
  }

  static void StartExpression(const State& state, Level* level) {
    level->expression_start = state.column;
    level->unary_operand_start = -1;
    level->chain_start = -1;
  }

  void ContinueLine(size_t i, State* state) const {
    if (statement_.FollowsSpace(i)) ++state->column;
    state->column_of_line = -1;
    if (i == 0) return;
    Level& level = state->levels.back();
    const std::string& before = statement_.Text(i - 1);
    const bool is_first = statement_.Opens(i - 1) && !statement_.Closes(i);
    if (is_first || before == "return") level.indent = state->column;
    if (statement_.StartsExpression(i)) StartExpression(*state, &level);
    if (before == ",") level.argument_starts_line = false;
    if (statement_.IsUnary(i - 1)) level.unary_operand_start = state->column;
    const bool is_first_of_condition =
        is_first && i >= 2 && statement_.Text(i - 2) == "if";
    if (before == "," || statement_.IsAnd(i - 1) ||
        statement_.IsBinary(i - 1) || is_first_of_condition) {
      level.last_start = state->column;
    }
  }

  const int indentation_;
  const Statement statement_;
  std::vector<Step> steps_;
};

}  // namespace

std::string BreakStatement(int indentation, const std::string& statement) {
  return StatementBreaker(indentation, statement).Break();
}

}  // namespace compiler
}  // namespace vantiro
