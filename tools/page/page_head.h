// The beginning of every HTML page that the program writes.

#ifndef VANTIRO_TOOLS_PAGE_PAGE_HEAD_H_
#define VANTIRO_TOOLS_PAGE_PAGE_HEAD_H_

#include <ostream>
#include <string>
#include <string_view>

#include "tools/page/html.h"

namespace vantiro {
namespace tools {

// A file of the program, of which the assembler gives the begin and the end.
inline std::string_view Between(const char* begin, const char* end) {
  return {begin, static_cast<size_t>(end - begin)};
}

// Writes what is before the first tag within the page's body. `title` is plain
// text, `style` CSS.
inline void WritePageHead(const std::string& title, std::string_view style,
                          std::ostream* out) {
  *out << R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>)"
       << Escape(title) << "</title>\n<style>\n"
       << style << "</style>\n</head>\n<body>\n";
}

}  // namespace tools
}  // namespace vantiro

#endif  // VANTIRO_TOOLS_PAGE_PAGE_HEAD_H_
