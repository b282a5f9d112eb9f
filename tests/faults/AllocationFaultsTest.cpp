// Every allocation of a load fails once, or all fail from it on: what the host is told, what its dictionary holds then,
// that nothing is lost or freed twice, and that the same loader then loads the same files.

#include "Allocations.h"
#include "Batches.h"
#include "Host.h"
#include "KnownLosses.h"
#include "Promises.h"
#include "loader/support/Loading.h"
#include "loader/support/Sanitizers.h"
#include "loader/support/SchemaBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <string>

namespace MXF::Tessel::Test {
namespace {

using Allocations::Door;
using Allocations::Fault;

const std::string noMemory = "bad_alloc: std::bad_alloc";
const std::string unknownError = "ParseError (33): Unknown error in Xerces or XQilla";

/// A step in which a fault is set, what it does to the dictionary, and what that holds at the very end.
struct Setting {
  const Schemas& schemas;
  Step step;
  Door door;
  Fault fault;
  Change change;
  std::string complete;
};

bool isPromisedOutcome(const std::string& outcome, const Setting& setting) {
  // The memory for the ParseError is there again only if one allocation alone fails.
  const bool isTranslated = setting.step == Step::Dictionary && setting.fault == Fault::Once;
  return outcome == "ok" || outcome == noMemory || (isTranslated && outcome == unknownError);
}

/// XQilla does without some steps of its optimizers when memory runs out in them, so that a load may succeed.
bool isPromisedChange(const std::string& outcome, const std::string& dumped, const Setting& setting) {
  return outcome == "ok" ? dumped == setting.change.after : isPartOf(dumped, setting.change);
}

std::string outcomeWithFault(Host& host, const Setting& setting, long number) {
  return outcomeOf([&] {
    Allocations::failAt(setting.door, number, setting.fault);
    try {
      host.take(setting.step);
    } catch (...) {
      Allocations::stopFailing();
      throw;
    }
    Allocations::stopFailing();
  });
}

/// Into the same dictionary unless the step has added to it.
std::string outcomeOfLoadingAgain(Host& host, const Setting& setting, const std::string& dumped) {
  const bool startsOver = setting.step >= Step::Dictionary && hasAdded(dumped, setting.change);
  if (!startsOver) return outcomeOf([&] { host.takeAllFrom(setting.step); });
  host.startAnotherDictionary();
  return outcomeOf([&] { host.takeAllFrom(Step::Dictionary); });
}

std::string defectOfHost(const Setting& setting, long number) {
  Host host(setting.schemas);
  host.takeAllBefore(setting.step);
  const std::string outcome = outcomeWithFault(host, setting, number);
  const std::string dumped = host.text();
  if (!isPromisedOutcome(outcome, setting)) return "The step ends with " + outcome;
  if (!isPromisedChange(outcome, dumped, setting)) return "The dictionary holds\n" + dumped;
  const std::string again = outcomeOfLoadingAgain(host, setting, dumped);
  if (again != "ok") return "The same loader then ends with " + again;
  return host.text() == setting.complete ? "" : "The same loader then gives\n" + host.text();
}

#if defined(TESSELMXF_ADDRESS_SANITIZER) || defined(TESSELMXF_THREAD_SANITIZER)
constexpr long pointsPerRun = 7;  // sanitizers take ten times as long: one point of seven, each build the same
#else
constexpr long pointsPerRun = 1;
#endif

/// What is wrong when an allocation fails, by its number.
using Check = std::function<std::string(long)>;

/// The same, and what is lost.
std::string defectOrLoss(const Check& check, long number) {
  const long before = Allocations::inUse();
  std::string defect = check(number);
  const long lost = Allocations::inUse() - before;
  return defect.empty() && lost != 0 ? blocksLost(lost) : defect;
}

/// Checks every stride-th allocation, and says how many.
void expectNoDefects(const std::string& what, long allocations, long stride, const Check& check) {
  const long points = (allocations + stride - 1) / stride;
  int losses = 0;
  for (const Defect& defect :
       defectsIn(0, points - 1, [&](long point) { return defectOrLoss(check, 1 + point * stride); })) {
    if (isKnownLoss(defect)) {
      ++losses;
    } else {
      ADD_FAILURE() << what << ", allocation " << 1 + defect.point * stride << ": " << defect.text << "\nin "
                    << makerIn(defect.stack);
    }
  }
  std::cout << what << ": " << points << " of " << allocations << " allocations failed, " << losses
            << " known losses\n";
}

void everyAllocationFails(Door door, ValueTypes valueTypes, Fault fault, long stride = 1) {
  const Schemas schemas(valueTypes);
  Host reference(schemas);
  reference.takeAllFrom(Step::Construction);
  for (const Step step : allSteps) {
    Host host(schemas);
    host.takeAllBefore(step);
    const std::string before = host.text();
    Allocations::failAt(door, 0, fault);
    host.take(step);
    const long allocations = Allocations::stopFailing();
    ASSERT_GT(allocations, 0) << "The program's own door is not in use.";
    const Setting setting{schemas, step, door, fault, {before, host.text()}, reference.text()};
    expectNoDefects(stepNames[static_cast<int>(step)], allocations, stride * pointsPerRun,
                    [&](long number) { return defectOfHost(setting, number); });
  }
}

/// A load that fails anyway, and how.
struct FailingLoad {
  Step step;
  std::string Schemas::*file;
  std::string content;  ///< No file for the empty text.
  std::string outcome;
};

void everyAllocationFails(const FailingLoad& load, Door door) {
  Schemas schemas(ValueTypes::One);
  const std::string& path = schemas.*load.file;
  std::filesystem::remove(path);
  if (!load.content.empty()) std::ofstream(path) << load.content;
  const Setting setting{schemas, load.step, door, Fault::Once, {}, {}};
  const auto outcomeAt = [&](long number) {
    Host host(schemas);
    host.takeAllBefore(load.step);
    return outcomeWithFault(host, setting, number);
  };
  const auto check = [&](long number) {
    const std::string outcome = outcomeAt(number);
    const bool isExpected = outcome.rfind(load.outcome, 0) == 0;
    const bool isOfMemory = outcome != "ok" && isPromisedOutcome(outcome, setting);
    return isExpected || isOfMemory ? "" : "The load ends with " + outcome;
  };
  EXPECT_EQ(outcomeAt(0).substr(0, load.outcome.size()), load.outcome);
  expectNoDefects(load.outcome, Allocations::stopFailing(), pointsPerRun, check);
}

TEST(AllocationFaults, WhileAnErrorIsReported) {
  const std::string bound = R"(<s xmlns:xs="http://www.w3.org/2001/XMLSchema" )";
  const FailingLoad loads[] = {
      {Step::Multiplex, &Schemas::multiplex, "", "IOError"},
      {Step::Multiplex, &Schemas::multiplex, "<s><", "ParseError"},
      {Step::Multiplex, &Schemas::multiplex, "<s/>", "InvalidValue"},
      {Step::Multiplex, &Schemas::multiplex, "<!DOCTYPE s SYSTEM 'x' [<!ENTITY e SYSTEM 'y'>]><s>&e;</s>",
       "InvalidValue"},
      {Step::Dictionary, &Schemas::dictionary, "<s/>", "ParseError (33): XQillaException"},
      {Step::Scheme, &Schemas::scheme, "<s/>", "XQillaException"},
      {Step::Scheme, &Schemas::scheme, bound + "/>", "SchemeDataMissingException"},
      {Step::Scheme, &Schemas::import, "", "IOError"},
      {Step::Scheme, &Schemas::import, "<s><", "SAXParseException"},
  };
  for (const FailingLoad& load : loads) {
    for (const Door door : {Door::Model, Door::Standard}) everyAllocationFails(load, door);
  }
}

TEST(AllocationFaults, WhileAnImportWithoutNamespaceIsRecorded) {
  Schemas schemas(ValueTypes::One);
  SchemaBuilder scheme;
  scheme.add(import("", "base.xsd")).add(group("G", 1)).add(complexType("GType", "", "Base"));
  schemas.folder.write("scheme.xsd", scheme.text());
  schemas.folder.write("base.xsd", SchemaBuilder().drop("targetNamespace").add(complexType("Base", "")).text());
  const auto missing = "SchemeDataMissingException (46): Scheme document without target namespace URI.";
  const Setting setting{schemas, Step::Scheme, Door::Model, Fault::Once, {}, {}};
  const auto check = [&](long number) {
    Host host(schemas);
    host.takeAllBefore(Step::Scheme);
    outcomeWithFault(host, setting, number);
    // Once recorded, the import is in the way of all look-ups.
    host.startAnotherDictionary();
    const std::string again = outcomeOf([&] { host.takeAllFrom(Step::Dictionary); });
    return again == "ok" || again == missing ? "" : "The same loader then ends with " + again;
  };
  EXPECT_EQ(check(0), "");
  expectNoDefects("loadScheme", Allocations::stopFailing(), pointsPerRun, check);
}

TEST(AllocationFaults, OfTheModel) {
  everyAllocationFails(Door::Model, ValueTypes::All, Fault::Once);
}
TEST(AllocationFaults, OfTheModelFromOneOn) {
  everyAllocationFails(Door::Model, ValueTypes::All, Fault::FromThenOn, 5);
}
TEST(AllocationFaults, OfAllElse) {
  everyAllocationFails(Door::Standard, ValueTypes::One, Fault::Once);
}
TEST(AllocationFaults, OfAllElseFromOneOn) {
  everyAllocationFails(Door::Standard, ValueTypes::One, Fault::FromThenOn, 5);
}

}  // namespace
}  // namespace MXF::Tessel::Test
