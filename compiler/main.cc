#include <google/protobuf/compiler/plugin.h>

#include "compiler/generator.h"

int main(int argc, char* argv[]) {
  vantiro::compiler::Generator generator;
  return google::protobuf::compiler::PluginMain(argc, argv, &generator);
}
