#pragma once

/// The program's two doors to the heap, with a fault to be set in them. Linking this makes the program's own
/// Platform::malloc_alloc and global operator new those of every library it loads, since a shared object takes a symbol
/// from the program first. Every block carries a mark, so that one that is freed twice, by the other door or with
/// another size ends the program.
namespace MXF::Tessel::Test::Allocations {

enum class Door {
  Model,     ///< Platform::malloc_alloc
  Standard,  ///< operator new
};

/// What happens to the allocation that a fault is set on.
enum class Fault { Once, FromThenOn };

/// How many blocks are in use, of both doors.
long inUse();

/// Makes an allocation of the door fail, counted from 1 at this call; none for 0.
void failAt(Door door, long number, Fault fault);

/// No allocation fails from now on.
/// @return allocations of the door between failAt() and the first call of this.
long stopFailing();

/// Return addresses of the allocation that failed first, innermost first, into memory that outlives the process.
struct Stack {
  static constexpr int mostFrames = 64;
  void* frames[mostFrames];
  int size;
};
void recordStackIn(Stack* stack);

}  // namespace MXF::Tessel::Test::Allocations
