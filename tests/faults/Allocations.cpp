#include "Allocations.h"

#include <Platform/malloc_alloc.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <execinfo.h>
#include <new>
#include <utility>

namespace MXF::Tessel::Test::Allocations {

namespace {

// Plain data: operator new is called before any constructor of this program has run.
struct State {
  long inUse;
  bool watching;
  Door door;  // the one that is watched
  Fault fault;
  long failing;  // number of the allocation that fails
  long count;
  bool failed;
  Stack* stack;
};
State state;

/// Stands before each block; its size keeps the block aligned for every type.
struct alignas(std::max_align_t) Mark {
  std::size_t size;
  unsigned int door;
};
constexpr unsigned int liveMark = 0x5AFE0000;
constexpr unsigned int freedMark = 0xDEAD0000;

bool isToFail(Door door) {
  if (!state.watching || state.door != door) return false;
  const long number = ++state.count;
  const bool fromThenOn = state.fault == Fault::FromThenOn && state.failing != 0;
  const bool fails = number == state.failing || (fromThenOn && number > state.failing);
  if (!fails) return false;
  if (!state.failed && state.stack != nullptr) state.stack->size = backtrace(state.stack->frames, Stack::mostFrames);
  state.failed = true;
  return true;
}

void* allocate(Door door, std::size_t size) {
  if (isToFail(door)) return nullptr;
  void* memory = std::malloc(sizeof(Mark) + size);
  if (memory == nullptr) return nullptr;
  Mark* mark = new (memory) Mark{size, liveMark | static_cast<unsigned int>(door)};
  ++state.inUse;
  return mark + 1;
}

[[noreturn]] void stop(const char* fault) {
  std::fputs(fault, stderr);
  std::abort();
}

Mark* checkedMark(Door door, void* block) {
  Mark* mark = static_cast<Mark*>(block) - 1;
  if ((mark->door & 0xFFFF0000U) == freedMark) stop("A block is freed twice.\n");
  if (mark->door != (liveMark | static_cast<unsigned int>(door))) stop("A block is freed by another door.\n");
  return mark;
}

/// The blocks freed last, kept for a while so that the mark of one that is freed twice can still be read.
constexpr std::size_t keptBlocks = 64;
Mark* kept[keptBlocks];
std::size_t oldestKept;

void deallocate(Door door, void* block) {
  if (block == nullptr) return;
  Mark* mark = checkedMark(door, block);
  mark->door = freedMark;
  --state.inUse;
  std::free(std::exchange(kept[oldestKept], mark));
  oldestKept = (oldestKept + 1) % keptBlocks;
}

}  // namespace

long inUse() {
  return state.inUse;
}

void failAt(Door door, long number, Fault fault) {
  state.watching = true;
  state.door = door;
  state.fault = fault;
  state.failing = number;
  state.count = 0;
  state.failed = false;
}

long stopFailing() {
  state.watching = false;
  return state.count;
}

void recordStackIn(Stack* stack) {
  state.stack = stack;
  if (stack != nullptr) backtrace(stack->frames, 1);  // makes what it keeps for ever before anything fails
}

namespace {

void* allocateOrThrow(Door door, std::size_t size) {
  void* block = allocate(door, size);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

}  // namespace
}  // namespace MXF::Tessel::Test::Allocations

namespace {

namespace Allocations = MXF::Tessel::Test::Allocations;
constexpr auto standard = Allocations::Door::Standard;

}  // namespace

namespace MXF::Tessel::Platform {

void* malloc_alloc::allocate(std::size_t bytes) {
  return Allocations::allocateOrThrow(Allocations::Door::Model, bytes);
}
void malloc_alloc::deallocate(void* block, std::size_t bytes) noexcept {
  if (block != nullptr && Allocations::checkedMark(Allocations::Door::Model, block)->size != bytes) {
    Allocations::stop("A block is freed with another size.\n");
  }
  Allocations::deallocate(Allocations::Door::Model, block);
}

}  // namespace MXF::Tessel::Platform

// All forms, since the defaults of the rest may be a sanitizer's own.
void* operator new(std::size_t size) {
  return Allocations::allocateOrThrow(standard, size);
}
void* operator new[](std::size_t size) {
  return Allocations::allocateOrThrow(standard, size);
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocations::allocate(standard, size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return Allocations::allocate(standard, size);
}
void operator delete(void* block) noexcept {
  Allocations::deallocate(standard, block);
}
void operator delete[](void* block) noexcept {
  Allocations::deallocate(standard, block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
  Allocations::deallocate(standard, block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
  Allocations::deallocate(standard, block);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
  Allocations::deallocate(standard, block);
}
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
  Allocations::deallocate(standard, block);
}
