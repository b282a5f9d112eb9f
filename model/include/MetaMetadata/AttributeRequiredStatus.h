#pragma once

#include <Platform/Export.h>

namespace MXF::Tessel::MetaMetadata {

/// Whether an attribute must be there in its set (SMPTE ST 377-1), and the words for it. One object serves the whole
/// process; it never changes, so any number of threads may ask it at once.
class TESSELMXF_MODEL_API AttributeRequiredStatus {
 public:
  /// What is asked of those who write files, and of those who read them.
  enum class Status : int {
    Required,         ///< "Req": of both.
    Optional,         ///< "Opt": of none.
    DecoderRequired,  ///< "D/req": of those who read.
    EncoderRequired,  ///< "E/req": of those who write.
    BestEffort        ///< "B.Effort": who does not know the value writes the distinguished one.
  };

  /// The one object of the process.
  static AttributeRequiredStatus& instance();

  /// @param text  not null: "Req", "Opt", "D/req", "E/req" or "B.Effort", exactly.
  /// @throws Exceptions::InvalidValue  any other text: "Unknown required status: " and the text.
  virtual Status fromString(const wchar_t* text) const;
  /// The same word; valid for ever.
  /// @throws Exceptions::InvalidValue  the status is none of the five: "Unknown required status: " and its number.
  virtual const wchar_t* toString(const Status& status) const;

  AttributeRequiredStatus(const AttributeRequiredStatus&) = delete;
  AttributeRequiredStatus& operator=(const AttributeRequiredStatus&) = delete;

 protected:
  AttributeRequiredStatus() = default;
  ~AttributeRequiredStatus() = default;
};

}  // namespace MXF::Tessel::MetaMetadata
