#pragma once

#include <Platform/Export.h>
#include <Templates/Containers.h>

#include <cstddef>

namespace MXF::Tessel::DataIO {

/// Where serialised bytes go. Implemented by the host; the library only writes.
class TESSELMXF_MODEL_API DataSink {
 public:
  virtual ~DataSink();

  /// Takes the next bytes, in order.
  /// @param data  borrowed for the call; may be null when size is 0.
  /// @param size  number of bytes.
  virtual void write(const unsigned char* data, std::size_t size) = 0;
};

/// Gathers the bytes in memory.
class TESSELMXF_MODEL_API BufferSink : public DataSink {
 public:
  ~BufferSink() override;
  void write(const unsigned char* data, std::size_t size) override;

  /// All bytes written so far.
  const Templates::vector<unsigned char>& bytes() const { return bytes_; }

 private:
  Templates::vector<unsigned char> bytes_;
};

}  // namespace MXF::Tessel::DataIO
