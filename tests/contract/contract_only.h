// Operations of the contract that other classes lack: protoc's own since 3.21.
// A test that calls one of those fails over them, where it would not compile.

#ifndef VANTIRO_TESTS_CONTRACT_CONTRACT_ONLY_H_
#define VANTIRO_TESTS_CONTRACT_CONTRACT_ONLY_H_

#include <gtest/gtest.h>

#include <string>

namespace vantiro {
namespace tests {

template <typename T>
T* Lacking(const char* operation) {
  ADD_FAILURE() << "the class lacks " << operation;
  return nullptr;
}

// The first that compiles is called: 0 is an int rather than a char.
template <typename T>
auto MaybeArenaPointer(const T& message, int)
    -> decltype(message.GetMaybeArenaPointer()) {
  return message.GetMaybeArenaPointer();
}
template <typename T>
void* MaybeArenaPointer(const T&, char) {
  return Lacking<void>("GetMaybeArenaPointer");
}
template <typename T>
void* MaybeArenaPointer(const T& message) {
  return MaybeArenaPointer(message, 0);
}

template <typename T>
auto UnsafeArenaSetAllocatedString(std::string* text, T* message, int)
    -> decltype(message->unsafe_arena_set_allocated_string_value(text)) {
  message->unsafe_arena_set_allocated_string_value(text);
}
template <typename T>
void UnsafeArenaSetAllocatedString(std::string* text, T* message, char) {
  ADD_FAILURE() << "the class lacks unsafe_arena_set_allocated_<string field>";
  message->set_string_value(*text);
}
template <typename T>
void UnsafeArenaSetAllocatedString(std::string* text, T* message) {
  UnsafeArenaSetAllocatedString(text, message, 0);
}

template <typename T>
auto UnsafeArenaReleaseString(T* message, int)
    -> decltype(message->unsafe_arena_release_string_value()) {
  return message->unsafe_arena_release_string_value();
}
template <typename T>
std::string* UnsafeArenaReleaseString(T*, char) {
  return Lacking<std::string>("unsafe_arena_release_<string field>");
}
template <typename T>
std::string* UnsafeArenaReleaseString(T* message) {
  return UnsafeArenaReleaseString(message, 0);
}

}  // namespace tests
}  // namespace vantiro

#endif  // VANTIRO_TESTS_CONTRACT_CONTRACT_ONLY_H_
