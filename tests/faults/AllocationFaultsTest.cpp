// Every allocation of a load fails once, or all fail from it on: what the host is told, what its dictionary holds then,
// that nothing is lost or freed twice, and that the same loader then loads the same files.

#include "Allocations.h"
#include "Batches.h"
#include "Host.h"
#include "KnownLosses.h"
#include "Promises.h"
#include "loader/support/Loading.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iostream>

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

std::string defectAt(const Setting& setting, long number) {
  const long before = Allocations::inUse();
  std::string defect = defectOfHost(setting, number);
  const long lost = Allocations::inUse() - before;
  return defect.empty() && lost != 0 ? blocksLost(lost) : defect;
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr long pointsPerRun = 7;  // sanitizers take ten times as long: one point of seven, each build the same
#else
constexpr long pointsPerRun = 1;
#endif

/// Sets the fault at every stride-th allocation of the step.
void expectNoDefects(const Setting& setting, long allocations, long stride) {
  const long points = (allocations + stride - 1) / stride;
  int losses = 0;
  for (const Defect& defect :
       defectsIn(0, points - 1, [&](long point) { return defectAt(setting, 1 + point * stride); })) {
    if (isKnownLoss(defect)) {
      ++losses;
    } else {
      ADD_FAILURE() << stepNames[static_cast<int>(setting.step)] << ", allocation " << 1 + defect.point * stride << ": "
                    << defect.text << "\nin " << makerIn(defect.stack);
    }
  }
  std::cout << stepNames[static_cast<int>(setting.step)] << ": " << points << " of " << allocations
            << " allocations failed, " << losses << " known losses\n";
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
    const long allocations = Allocations::stopFailing().count;
    ASSERT_GT(allocations, 0) << "The program's own door is not in use.";
    expectNoDefects({schemas, step, door, fault, {before, host.text()}, reference.text()}, allocations,
                    stride * pointsPerRun);
  }
}

/// A load that fails anyway, and how.
struct FailingLoad {
  Step step;
  std::string Schemas::*file;
  std::string content;  ///< No file for the empty text.
  std::string outcome;
};

std::string defectOfFailingLoad(const FailingLoad& load, const Schemas& schemas, Door door, long number) {
  Host host(schemas);
  host.takeAllBefore(load.step);
  const Setting setting{schemas, load.step, door, Fault::Once, {}, {}};
  const std::string outcome = outcomeWithFault(host, setting, number);
  const bool isExpected = outcome.rfind(load.outcome, 0) == 0;
  return isExpected || (outcome != "ok" && isPromisedOutcome(outcome, setting)) ? "" : "The load ends with " + outcome;
}

/// @return the number of allocations that failed.
long everyAllocationFails(const FailingLoad& load, Door door) {
  Schemas schemas(ValueTypes::One);
  const std::string& path = schemas.*load.file;
  std::filesystem::remove(path);
  if (!load.content.empty()) std::ofstream(path) << load.content;
  Host host(schemas);
  host.takeAllBefore(load.step);
  const std::string outcome = outcomeWithFault(host, {schemas, load.step, door, Fault::Once, {}, {}}, 0);
  EXPECT_EQ(outcome.substr(0, load.outcome.size()), load.outcome);
  const long allocations = Allocations::stopFailing().count;
  const auto check = [&](long number) {
    const long before = Allocations::inUse();
    std::string defect = defectOfFailingLoad(load, schemas, door, number);
    const long lost = Allocations::inUse() - before;
    return defect.empty() && lost != 0 ? blocksLost(lost) : defect;
  };
  for (const Defect& defect : defectsIn(1, allocations, check)) {
    EXPECT_TRUE(isKnownLoss(defect)) << load.outcome << ", allocation " << defect.point << ": " << defect.text
                                     << "\nin " << makerIn(defect.stack);
  }
  return allocations;
}

TEST(AllocationFaults, WhileAnErrorIsReported) {
  const std::string bound = R"(<s xmlns:xs="http://www.w3.org/2001/XMLSchema" )";
  const FailingLoad loads[] = {
      {Step::Multiplex, &Schemas::multiplex, "", "IOError"},
      {Step::Multiplex, &Schemas::multiplex, "<s><", "ParseError"},
      {Step::Multiplex, &Schemas::multiplex, "<s/>", "InvalidValue"},
      {Step::Multiplex, &Schemas::multiplex, "<!DOCTYPE s SYSTEM 'x'><s>&e;</s>", "InvalidValue"},
      {Step::Dictionary, &Schemas::dictionary, "<s/>", "ParseError (33): XQillaException"},
      {Step::Scheme, &Schemas::scheme, "<s/>", "XQillaException"},
      {Step::Scheme, &Schemas::scheme, bound + "/>", "SchemeDataMissingException"},
      {Step::Scheme, &Schemas::import, "", "IOError"},
      {Step::Scheme, &Schemas::import, "<s><", "SAXParseException"},
  };
  long allocations = 0;
  for (const FailingLoad& load : loads) {
    for (const Door door : {Door::Model, Door::Standard}) allocations += everyAllocationFails(load, door);
  }
  std::cout << allocations << " allocations failed\n";
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
