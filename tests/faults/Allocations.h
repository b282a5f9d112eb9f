#pragma once

#include <cstddef>

/// The program's two doors to the heap, with a fault to be set in them. Linking this makes the program's own
/// Platform::malloc_alloc and global operator new those of every library it loads, since a shared object takes a symbol
/// from the program first. Every block carries a mark, so that one that is freed twice, by the other door or with
/// another size ends the program.
namespace MXF::Tessel::Test::Allocations {

enum class Door {
  Model,     ///< Platform::malloc_alloc
  Standard,  ///< operator new
};
constexpr std::size_t doorCount = 2;

/// What happens to the allocation that a fault is set on.
enum class Fault { Once, FromThenOn };

/// How many blocks are in use, of both doors.
long inUse();

/// Makes an allocation of the door fail, counted from 1 at this call.
void failAt(Door door, long number, Fault fault);

/// What became of the fault.
struct Outcome {
  long count;   ///< Allocations of the door since failAt().
  bool failed;  ///< Whether the fault was met.
};
/// No allocation fails from now on.
Outcome stopFailing();

/// Return addresses of the allocation that failed first, innermost first, into memory that outlives the process.
struct Stack {
  static constexpr int mostFrames = 64;
  void* frames[mostFrames];
  int size;
};
void recordStackIn(Stack* stack);

}  // namespace MXF::Tessel::Test::Allocations
