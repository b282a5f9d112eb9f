#include "commands/ReportCommand.h"

#include "commands/LoadOptions.h"
#include "report/ReportPage.h"

#include <Utils/TextConversion.h>

#include <CLI/CLI.hpp>

#include <memory>

namespace MXF::Tessel::Tool {

namespace {

constexpr const char* htmlFormat = "html";

struct ReportRequest {
  std::string title = "MXF metadata dictionary";
  LoadRequest load;
  OutputOptions output;
};

constexpr SubcommandHelp reportHelp = {
    "report", "Writes a web page of all sets and elements, linked and searchable.",
    "The page is one HTML file that needs nothing else and no network. It has the tree of sets, each set\n"
    "with its own and inherited attributes and where it is referred to, and each element with the sets\n"
    "that use it. The addresses of its parts are made of keys and labels, so that links to\n"
    "\"report.html#set-KEY\" and \"report.html#element-LABEL\" stay good.",
    "  mxf-metadict report --output report.html --multiplex multiplex.xsd \\\n"
    "                      --dictionary dictionary.xsd --scheme groups.xsd\n"
    "      writes report.html, to be opened in any browser\n"
    "  mxf-metadict report --title \"Archive metadata 2.1\" --dictionary dictionary.xsd > archive.html\n"
    "      writes the elements of one schema under a title of its own"};

ExitStatus runReport(const ReportRequest& request) {
  return withDictionary(request.load, request.output, [&](const LoadOutcome& outcome) {
    writeResult(request.output, reportPage(outcome, Utils::stringToWstring(request.title.c_str())));
    return ExitStatus::Success;
  });
}

}  // namespace

void declareReport(CLI::App& tool, Action& action) {
  const auto request = std::make_shared<ReportRequest>();
  request->load.abstractGroupsIfPossible = true;
  request->load.documentation = true;
  request->load.lengthDescription = true;
  CLI::App& report = declareSubcommand(tool, reportHelp, {htmlFormat}, request->output);
  report.add_option("--title", request->title, "Title of the page")->type_name("TEXT");
  declareFileOptions(report, request->load);
  declareKeepGoing(report, request->load);
  report.callback([request, &action] {
    requireSchemas(request->load);
    action = [request] { return runReport(*request); };
  });
}

}  // namespace MXF::Tessel::Tool
