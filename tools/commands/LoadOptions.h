#pragma once

#include "commands/OutputOptions.h"
#include "commands/Subcommand.h"
#include "loading/SchemaLoading.h"

namespace MXF::Tessel::Tool {

/// Declares the options that name the schemas to load.
/// @param request  filled while the command line is read; outlives the subcommand.
void declareFileOptions(CLI::App& subcommand, LoadRequest& request);

/// Declares the option to go on after a failure, for a subcommand that does not do so anyway.
/// @param request  filled while the command line is read; outlives the subcommand.
void declareKeepGoing(CLI::App& subcommand, LoadRequest& request);

/// Declares the options that say what to take from the schemas, for a subcommand that does not decide that itself.
/// @param request  filled while the command line is read; outlives the subcommand.
void declareContentOptions(CLI::App& subcommand, LoadRequest& request);

/// @throws CLI::ParseError  the command line named neither a dictionary nor a scheme.
void requireSchemas(const LoadRequest& request);

/// Whether the output would replace one of the schemas or another XML Schema; if so, that is told.
bool isOutputRefused(const LoadRequest& request, const OutputOptions& output);

/// Loads the schemas, tells what went wrong on the standard error stream, and passes what was loaded on.
/// @param action  not called when a file failed, is not what it was given as, or no element was loaded, unless the request
///                says to keep going.
/// @return the worse of the action's status and that of the loading: Failure when the action is not called without
///         keeping going, WrongUsage when the output would replace a schema.
ExitStatus withDictionary(const LoadRequest& request, const OutputOptions& output,
                          const std::function<ExitStatus(const LoadOutcome&)>& action);

}  // namespace MXF::Tessel::Tool
