// Writes JSON without an object for each value, which is where most of the time
// would go.

#ifndef VANTIRO_TOOLS_FORMATS_JSON_PRINTER_H_
#define VANTIRO_TOOLS_FORMATS_JSON_PRINTER_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace vantiro {
namespace tools {

// Appends values, and in an object each after its key. The text is that of
// nlohmann::json.
class JsonPrinter {
 public:
  // In lines with an indentation of `indent`, or in one line if that is -1.
  JsonPrinter(int indent, std::string* text) : indent_(indent), text_(*text) {}

  void BeginObject() { Begin('{'); }
  void EndObject() { End('}'); }
  void BeginArray() { Begin('['); }
  void EndArray() { End(']'); }
  // Without characters that need an escape.
  void PlainKey(std::string_view key);
  void Key(std::string_view key);

  // A value that is JSON.
  void Raw(std::string_view json);
  // The same, and the text goes on with what the caller appends to it.
  std::string* BeginRaw();
  void String(std::string_view value);
  // Without characters that need an escape.
  void PlainString(std::string_view value);
  void Float(float value);

 private:
  void Begin(char bracket);
  void End(char bracket);
  // Before an element or a key.
  void BeginItem();
  void EndKey();
  void BreakLine();

  const int indent_;
  std::string& text_;
  size_t depth_ = 0;
  // No element or member has been written in the innermost array or object.
  bool is_first_ = true;
  bool is_after_key_ = false;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_JSON_PRINTER_H_
