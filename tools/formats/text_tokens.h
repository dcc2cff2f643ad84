// The tokens of the text format.

#ifndef VANTIRO_TOOLS_FORMATS_TEXT_TOKENS_H_
#define VANTIRO_TOOLS_FORMATS_TEXT_TOKENS_H_

#include <google/protobuf/io/tokenizer.h>
#include <google/protobuf/io/zero_copy_stream_impl_lite.h>

#include <cstdint>
#include <string>

namespace vantiro {
namespace tools {

// Reads tokens as the runtime's TextFormat::Parser does. What is not as
// expected throws a FormatError with line and column.
class TextTokens {
 public:
  using Token = google::protobuf::io::Tokenizer::Token;
  using Type = google::protobuf::io::Tokenizer::TokenType;

  // `text` has to outlive it.
  explicit TextTokens(const std::string& text);

  const Token& current() { return tokenizer_.current(); }
  bool Is(Type type) { return current().type == type; }
  bool Is(const char* text) { return current().text == text; }
  bool IsEnd();
  bool IsInteger();
  bool IsIdentifier();
  bool IsString();

  void Next();
  std::string Take();
  bool TryTake(const char* symbol);
  void Expect(const char* symbol);

  // Decimal, hexadecimal or octal.
  uint64_t TakeUnsigned(uint64_t max);
  int64_t TakeSigned(uint64_t max);
  // The bits of the value.
  uint32_t TakeFloat();
  bool TakeBool();
  // Adjacent strings are one.
  std::string TakeString();

  [[noreturn]] void FailHere(const std::string& what);
  [[noreturn]] static void FailAt(const Token& token, const std::string& what);

 private:
  // The tokenizer reports its errors here and goes on; the first one is thrown.
  class FirstError : public google::protobuf::io::ErrorCollector {
   public:
    void AddError(int line, int column, const std::string& message) override;
    void ThrowIfAny() const;

   private:
    std::string what_;
    int line_ = 0;
    int column_ = 0;
  };

  double TakeDouble();
  // What follows nan: its bits, as in "nan(0xffc00001)".
  uint32_t TakeNanBits();

  FirstError error_;
  google::protobuf::io::ArrayInputStream stream_;
  google::protobuf::io::Tokenizer tokenizer_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_TEXT_TOKENS_H_
