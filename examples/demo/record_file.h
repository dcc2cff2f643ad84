// Records as files: the bytes of one record and nothing else.

#ifndef VANTIRO_EXAMPLES_DEMO_RECORD_FILE_H_
#define VANTIRO_EXAMPLES_DEMO_RECORD_FILE_H_

#include <string>

namespace vantiro::examples {

// The path of the record of a type in a folder.
std::string RecordPath(const std::string& folder, const std::string& type_name);

// The folder of the reference records.
std::string ReferenceFolder();

// Both tell whether it went well.
bool WriteFile(const std::string& path, const std::string& bytes);
bool ReadFile(const std::string& path, std::string* bytes);

}  // namespace vantiro::examples

#endif  // VANTIRO_EXAMPLES_DEMO_RECORD_FILE_H_
