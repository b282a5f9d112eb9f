// Prints the manual page or the completion script of the tool. Runs while the project is built; not installed.

#include "commands/CommandLine.h"
#include "manual/BashCompletion.h"
#include "manual/ManualPage.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <iostream>
#include <string>

int main(int argc, char** argv) try {
  using namespace MXF::Tessel::Tool;
  const std::string what = argc == 2 ? argv[1] : "";
  Action action;
  CLI::App tool("", toolName);
  declareTool(tool, action);
  if (what == "man") {
    std::cout << manualPage(tool, TESSELMXF_VERSION);
  } else if (what == "bash") {
    std::cout << bashCompletion(tool);
  } else {
    std::cerr << "usage: " << argv[0] << " man|bash\n";
    return 2;
  }
  return std::cout.flush() ? 0 : 1;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
