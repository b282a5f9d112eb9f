#pragma once

namespace MXF::Tessel::Types {

/// Selects the text form of labels, keys, local tags, UUIDs and UMIDs.
enum class StringRepresentationEncodingType : int {
  /// Form 0: each byte as two upper-case hexadecimal digits, bytes joined by ".": 47 characters for 16 bytes, 5 for a
  /// local tag (3C.0A), 95 for a 32-byte and 191 for a 64-byte UMID. Read back with letters in either case.
  DottedHex = 0
};

}  // namespace MXF::Tessel::Types
