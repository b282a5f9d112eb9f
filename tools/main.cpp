#include "commands/CommandLine.h"

int main(int argc, char** argv) {
  return static_cast<int>(MXF::Tessel::Tool::runTool(argc, argv));
}
