// A stream that appends to a string.

#ifndef VANTIRO_TOOLS_FORMATS_STRING_STREAM_H_
#define VANTIRO_TOOLS_FORMATS_STRING_STREAM_H_

#include <ostream>
#include <streambuf>
#include <string>

namespace vantiro {
namespace tools {

// A std::ostringstream has its own string, which has to be copied.
class StringStream : public std::ostream {
 public:
  explicit StringStream(std::string* text)
      : std::ostream(nullptr), buffer_(text) {
    rdbuf(&buffer_);
  }

 private:
  class Buffer : public std::streambuf {
   public:
    explicit Buffer(std::string* text) : text_(*text) {}

   private:
    int_type overflow(int_type c) override {
      if (c != traits_type::eof()) text_ += static_cast<char>(c);
      return 0;
    }
    std::streamsize xsputn(const char* bytes, std::streamsize size) override {
      text_.append(bytes, static_cast<size_t>(size));
      return size;
    }

    std::string& text_;
  };

  Buffer buffer_;
};

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_FORMATS_STRING_STREAM_H_
