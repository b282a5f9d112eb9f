// Where serialised bytes go.

#include <DataIO/DataSink.h>

namespace MXF::Tessel::DataIO {

DataSink::~DataSink() = default;
BufferSink::~BufferSink() = default;

void BufferSink::write(const unsigned char* data, std::size_t size) {
  if (size != 0) bytes_.insert(bytes_.end(), data, data + size);
}

}  // namespace MXF::Tessel::DataIO
