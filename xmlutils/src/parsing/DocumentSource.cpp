#include "DocumentSource.h"

#include <xercesc/util/BinInputStream.hpp>

#include <algorithm>
#include <cstddef>

namespace MXF::Tessel::XMLUtils {

namespace {

class ContentStream : public xercesc::BinInputStream {
 public:
  ContentStream(const FileContent& content, Parser* parser) : content_(content), parser_(parser) {}

  XMLFilePos curPos() const override { return position_; }

  XMLSize_t readBytes(XMLByte* target, XMLSize_t maximum) override {
    // In small steps, so that what the parser has been given is near to what it has got to.
    constexpr XMLSize_t step = 16'384;
    const XMLSize_t count = std::min({maximum, step, content_.size() - position_});
    if (parser_ != nullptr) parser_->countRead(count);
    std::copy_n(content_.data() + position_, count, target);
    position_ += count;
    return count;
  }

  const XMLCh* getContentType() const override { return nullptr; }

 private:
  const FileContent& content_;
  Parser* parser_;
  std::size_t position_ = 0;
};

}  // namespace

xercesc::BinInputStream* DocumentSource::makeStream() const {
  if (parser_ != nullptr) parser_->beginDocument();
  return new (getMemoryManager()) ContentStream(content_, parser_);
}

}  // namespace MXF::Tessel::XMLUtils
