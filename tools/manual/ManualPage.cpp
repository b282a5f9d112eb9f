// Writes man(7). Entry point: manualPage(); all else is local. Requests start with a dot at the start of a line, so that
// every other line goes through escaped().

#include "manual/ManualPage.h"

#include "commands/Subcommand.h"
#include "manual/Declarations.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <sstream>
#include <string_view>

namespace MXF::Tessel::Tool {

namespace {

/// Beginnings of paragraphs that have a section of their own.
struct Section {
  std::string_view beginning;
  const char* title;
};

constexpr Section sections[] = {{"Exit status: ", "EXIT STATUS"}, {"Environment: ", "ENVIRONMENT"}};

/// A text that groff shows as it is: with its backslashes, with hyphens that can be copied as ones, and with no line
/// that is taken for a request.
std::string escaped(std::string_view text) {
  std::string result;
  for (const char character : text) {
    const bool startsLine = result.empty() || result.back() == '\n';
    if (startsLine && (character == '.' || character == '\'')) result += "\\&";
    if (character == '\\') {
      result += "\\e";
    } else if (character == '-') {
      result += "\\-";
    } else {
      result += character;
    }
  }
  return result;
}

std::string bold(const std::string& text) {
  return "\\fB" + escaped(text) + "\\fR";
}

std::string italic(const std::string& text) {
  return "\\fI" + escaped(text) + "\\fR";
}

/// The footer of a help: paragraphs, and examples behind their heading.
struct Footer {
  std::vector<std::string> paragraphs;
  std::string examples;
};

Footer footerOf(const CLI::App& app) {
  const std::string text = app.get_footer();
  const std::size_t heading = std::min(text.find(examplesHeading), text.size());
  Footer footer;
  footer.examples = text.substr(std::min(heading + std::string_view(examplesHeading).size(), text.size()));
  std::string_view rest = text;
  rest = rest.substr(0, heading);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find("\n\n"), rest.size());
    if (end > 0) footer.paragraphs.emplace_back(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 2, rest.size()));
  }
  return footer;
}

void writeOption(std::ostream& page, const CLI::Option& option) {
  page << ".TP\n";
  const char* separator = "";
  for (const std::string& name : namesOf(option)) {
    page << separator << bold(name);
    separator = ", ";
  }
  if (option.get_positional()) page << italic(option.get_name(true));
  if (!option.get_positional() && takesValue(option)) page << ' ' << italic(option.get_type_name());
  page << '\n' << escaped(option.get_description()) << ".\n";
}

void writeOptions(std::ostream& page, const CLI::App& app) {
  for (const std::string& group : app.get_groups()) {
    for (const CLI::Option* option : app.get_options()) {
      if (option->get_group() == group) writeOption(page, *option);
    }
  }
}

void writeExamples(std::ostream& page, const std::string& examples) {
  if (examples.empty()) return;
  page << ".PP\n.nf\n" << escaped(examples) << "\n.fi\n";
}

std::string synopsis(const CLI::App& tool, const CLI::App& subcommand) {
  std::string line = bold(tool.get_name() + " " + subcommand.get_name());
  for (const CLI::Option* option : subcommand.get_options()) {
    if (option->get_positional()) line += " " + italic(option->get_name(true));
  }
  return line + " [" + italic("option") + " ...]\n";
}

/// A paragraph with indented lines is a list, and keeps its lines.
void writeParagraph(std::ostream& page, const std::string& paragraph) {
  const bool isList = paragraph.find("\n  ") != std::string::npos;
  page << (isList ? ".PP\n.nf\n" : ".PP\n") << escaped(paragraph) << (isList ? "\n.fi\n" : "\n");
}

void writeSubcommand(std::ostream& page, const CLI::App& tool, const CLI::App& subcommand) {
  const Footer footer = footerOf(subcommand);
  page << ".SS " << escaped(subcommand.get_name()) << '\n' << synopsis(tool, subcommand);
  page << ".PP\n" << escaped(subcommand.get_description()) << '\n';
  for (const std::string& paragraph : footer.paragraphs) writeParagraph(page, paragraph);
  writeOptions(page, subcommand);
  page << ".PP\nExamples:\n";
  writeExamples(page, footer.examples);
}

void writeTool(std::ostream& page, const CLI::App& tool) {
  page << ".SH NAME\n"
       << escaped(tool.get_name() + " - " + tool.get_description().substr(0, tool.get_description().size() - 1))
       << '\n';
  page << ".SH SYNOPSIS\n";
  for (const CLI::App* subcommand : declaredSubcommands(tool)) page << synopsis(tool, *subcommand) << ".br\n";
  page << bold(tool.get_name()) << " [" << bold("--help") << " | " << bold("--version") << "]\n";
}

void writeToolFooter(std::ostream& page, const CLI::App& tool) {
  const Footer footer = footerOf(tool);
  for (const std::string& paragraph : footer.paragraphs) {
    const auto* section = std::find_if(std::begin(sections), std::end(sections), [&](const Section& item) {
      return paragraph.compare(0, item.beginning.size(), item.beginning) == 0;
    });
    const bool isOwn = section != std::end(sections);
    page << ".SH " << (isOwn ? section->title : "NOTES") << '\n'
         << escaped(isOwn ? paragraph.substr(section->beginning.size()) : paragraph) << '\n';
  }
  page << ".SH EXAMPLES\n";
  writeExamples(page, footer.examples);
}

}  // namespace

std::string manualPage(const CLI::App& tool, const std::string& version) {
  std::ostringstream page;
  std::string title = tool.get_name();
  std::transform(title.begin(), title.end(), title.begin(), [](unsigned char c) { return std::toupper(c); });
  page << ".TH " << escaped(title) << R"( 1 "" ")" << escaped(tool.get_name() + " " + version)
       << "\" \"User Commands\"\n";
  writeTool(page, tool);
  page << ".SH OPTIONS\n";
  writeOptions(page, tool);
  page << ".SH COMMANDS\n";
  for (const CLI::App* subcommand : declaredSubcommands(tool)) writeSubcommand(page, tool, *subcommand);
  writeToolFooter(page, tool);
  return page.str();
}

}  // namespace MXF::Tessel::Tool
