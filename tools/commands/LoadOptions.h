#pragma once

#include "loading/SchemaLoading.h"

namespace CLI {
class App;
}

namespace MXF::Tessel::Tool {

/// Declares the options of every subcommand that loads schemas: the files, what to take from them, and whether to go on
/// after a failure.
/// @param request  filled while the command line is read; outlives the subcommand.
void declareLoadOptions(CLI::App& subcommand, LoadRequest& request);

/// @throws CLI::ParseError  the command line named neither a dictionary nor a scheme.
void requireSchemas(const LoadRequest& request);

}  // namespace MXF::Tessel::Tool
