// Files that are read in pieces, fail, change or vanish: what the host is told, what its dictionary holds then, and that
// the same loader then loads the same files.

#include "Files.h"
#include "Host.h"
#include "Promises.h"
#include "loader/support/Loading.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace MXF::Tessel::Test {
namespace {

using Files::Behaviour;
using Files::Call;

constexpr Step loads[] = {Step::Multiplex, Step::Dictionary, Step::Scheme};

/// The text of the dictionary that a host gets without any fault.
std::string completeText(const Schemas& schemas) {
  Host host(schemas);
  host.takeAllFrom(Step::Construction);
  return host.text();
}

/// The schemas in the order in which a step reads them.
std::vector<std::string> filesOf(const Schemas& schemas, Step step) {
  if (step == Step::Multiplex) return {schemas.multiplex};
  if (step == Step::Dictionary) return {schemas.dictionary};
  return {schemas.scheme, schemas.import};
}

/// A host before a step that fails, what the step would do, and how it is told from success.
class FailingStep {
 public:
  FailingStep(const Schemas& schemas, Step step) : schemas_(schemas), step_(step) {
    Host whole(schemas);
    whole.takeAllBefore(step);
    change_.before = whole.text();
    whole.take(step);
    change_.after = whole.text();
  }

  /// @return outcome of the step with this behaviour.
  std::string outcome(const Behaviour& behaviour) const {
    Host host(schemas_);
    host.takeAllBefore(step_);
    std::string outcome;
    {
      const Files::Scope scope(behaviour);
      outcome = outcomeOf([&] { host.take(step_); });
    }
    EXPECT_TRUE(outcome == "ok" ? host.text() == change_.after : isPartOf(host.text(), change_)) << host.text();
    EXPECT_FALSE(outcome != "ok" && hasAdded(host.text(), change_)) << host.text();
    if (outcome != "ok") {
      restoreFiles();
      EXPECT_EQ(outcomeOf([&] { host.takeAllFrom(step_); }), "ok");
      EXPECT_EQ(host.text(), completeText(schemas_));
    }
    return outcome;
  }

  /// How often the step makes the call.
  long calls(Call call, const Behaviour& behaviour) const {
    Host host(schemas_);
    host.takeAllBefore(step_);
    const Files::Scope scope(behaviour);
    host.take(step_);
    return scope.count(call);
  }

  std::function<void()> restoreFiles = [] {};

 private:
  const Schemas& schemas_;
  Step step_;
  Change change_;
};

std::string systemReason(const std::string& path, int error) {
  return "IOError (26): " + path + ": " + std::strerror(error);
}
std::string notFound(const std::string& path) {
  return "IOError (26): " + path + " file Not Found!";
}

TEST(ReadFaults, ReadingInPiecesAndWithInterruptionsMakesNoDifference) {
  const Schemas schemas(ValueTypes::One);
  const std::string complete = completeText(schemas);
  for (const std::size_t mostBytes : {0U, 1U, 3U, 4095U}) {
    for (const bool interrupted : {false, true}) {
      Behaviour behaviour;
      behaviour.mostBytes = mostBytes;
      behaviour.interrupted = interrupted;
      const Files::Scope scope(behaviour);
      EXPECT_EQ(completeText(schemas), complete) << mostBytes << interrupted;
      EXPECT_GE(scope.count(Call::Read), 8);  // of each file what it holds, and its end
    }
  }
}

TEST(ReadFaults, EveryReadThatFailsIsReportedWithItsFileAndReason) {
  const Schemas schemas(ValueTypes::One);
  long points = 0;
  for (const Step step : loads) {
    const FailingStep failing(schemas, step);
    const std::vector<std::string> files = filesOf(schemas, step);
    Behaviour behaviour;
    behaviour.mostBytes = 100;
    const long reads = failing.calls(Call::Read, behaviour);
    behaviour.failing = Call::Read;
    behaviour.error = EIO;
    std::size_t file = 0;
    for (behaviour.failingNumber = 1; behaviour.failingNumber <= reads; ++behaviour.failingNumber, ++points) {
      const std::string outcome = failing.outcome(behaviour);
      // Once the reads of one file are through, those of the next begin.
      if (outcome != systemReason(files[file], EIO) && file + 1 < files.size()) ++file;
      EXPECT_EQ(outcome, systemReason(files[file], EIO)) << stepNames[static_cast<int>(step)];
    }
    EXPECT_EQ(file + 1, files.size());
  }
  std::cout << points << " reads failed\n";
}

TEST(ReadFaults, AFileThatCannotBeOpenedIsNotFoundAndOneWithoutStatusCannotBeRead) {
  const Schemas schemas(ValueTypes::One);
  for (const Step step : loads) {
    const FailingStep failing(schemas, step);
    const std::vector<std::string> files = filesOf(schemas, step);
    EXPECT_EQ(failing.calls(Call::Open, {}), static_cast<long>(files.size()));
    for (std::size_t file = 0; file < files.size(); ++file) {
      for (const int error : {EACCES, EMFILE, ENOMEM}) {
        Behaviour behaviour;
        behaviour.failingNumber = static_cast<long>(file) + 1;
        behaviour.error = error;
        EXPECT_EQ(failing.outcome(behaviour), notFound(files[file]));
        behaviour.failing = Call::Status;
        EXPECT_EQ(failing.outcome(behaviour), systemReason(files[file], error));
      }
    }
  }
}

std::string contentOf(const std::string& path) {
  std::ostringstream content;
  content << std::ifstream(path, std::ios::binary).rdbuf();
  return content.str();
}
void write(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

TEST(ReadFaults, WhatIsNoRegularFileIsNotOpened) {
  const Schemas schemas(ValueTypes::One);
  for (const Step step : loads) {
    const std::string file = filesOf(schemas, step).back();
    const std::string content = contentOf(file);
    const std::function<int()> makers[] = {[&] { return mkfifo(file.c_str(), S_IRUSR | S_IWUSR); },
                                           [&] { return symlink("/dev/null", file.c_str()); },
                                           [&] { return mkdir(file.c_str(), S_IRWXU); }};
    for (const auto& make : makers) {
      Host host(schemas);
      host.takeAllBefore(step);
      std::filesystem::remove(file);
      ASSERT_EQ(make(), 0);
      const Behaviour asTheSystem;
      const Files::Scope scope(asTheSystem);
      EXPECT_EQ(outcomeOf([&] { host.take(step); }), notFound(file));
      EXPECT_EQ(scope.count(Call::Open), step == Step::Scheme ? 1 : 0);  // a scheme is read before its import
      std::filesystem::remove(file);
      write(file, content);
    }
  }
}

TEST(ReadFaults, AFileThatChangesWhileItIsReadCountsAsWhatWasRead) {
  const Schemas schemas(ValueTypes::One);
  Behaviour behaviour;
  behaviour.mostBytes = 100;
  for (const Step step : loads) {
    FailingStep changing(schemas, step);
    for (const std::string& file : filesOf(schemas, step)) {
      const std::string content = contentOf(file);
      changing.restoreFiles = [&] { write(file, content); };
      const auto changedInto = [&](const std::string& newContent) {
        behaviour.change = [&] { write(file, newContent); };
        const std::string outcome = changing.outcome(behaviour);
        changing.restoreFiles();
        return outcome;
      };
      const std::string malformed = file == schemas.import ? "SAXParseException: " : "ParseError (33): ";
      // The first read of the import follows all those of the scheme, of which the last one finds its end.
      const std::size_t readsOfScheme = contentOf(schemas.scheme).size() / behaviour.mostBytes + 2;
      behaviour.changingRead = 1 + (file == schemas.import ? static_cast<long>(readsOfScheme) : 0);
      EXPECT_EQ(changedInto(content + "<!--" + std::string(content.size(), 'x') + "-->"), "ok");
      for (const std::size_t left : {content.size() / 2, std::size_t{0}}) {
        const std::string outcome = changedInto(content.substr(0, left));
        EXPECT_EQ(outcome.rfind(malformed + file + ":", 0), 0U) << outcome;
      }
    }
  }
}

TEST(ReadFaults, ALoaderNeedsAnImportOnceAndAnyOtherFileAtEveryLoad) {
  const Schemas schemas(ValueTypes::One);
  const std::string complete = completeText(schemas);
  const std::string content = contentOf(schemas.import);
  Host host(schemas);
  host.takeAllFrom(Step::Construction);
  const auto expectComplete = [&] {
    host.startAnotherDictionary();
    EXPECT_EQ(outcomeOf([&] { host.takeAllFrom(Step::Dictionary); }), "ok");
    EXPECT_EQ(host.text(), complete);
  };
  write(schemas.import, "<changed");
  expectComplete();
  std::filesystem::remove(schemas.import);
  expectComplete();

  Host newHost(schemas);
  EXPECT_EQ(outcomeOf([&] { newHost.takeAllFrom(Step::Construction); }), notFound(schemas.import));
  write(schemas.import, content);
  for (const std::string& file : {schemas.dictionary, schemas.scheme}) {
    const std::string before = contentOf(file);
    std::filesystem::remove(file);
    host.startAnotherDictionary();
    EXPECT_EQ(outcomeOf([&] { host.takeAllFrom(Step::Dictionary); }), notFound(file));
    write(file, before);
    expectComplete();
  }
}

}  // namespace
}  // namespace MXF::Tessel::Test
