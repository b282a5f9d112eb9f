#pragma once

#include "FileContent.h"
#include "Parser.h"

#include <xercesc/sax/InputSource.hpp>
#include <xercesc/util/PlatformUtils.hpp>

namespace MXF::Tessel::XMLUtils {

/// A file's content as a source for a parser. One of ours is told how much of it has been read.
class DocumentSource : public xercesc::InputSource {
 public:
  /// @param content   outlives the source and its stream, like the parser.
  /// @param systemId  copied.
  /// @param parser    null if it is not one of ours.
  DocumentSource(const FileContent& content, const XMLCh* systemId, Parser* parser)
      : InputSource(systemId, parser == nullptr ? xercesc::XMLPlatformUtils::fgMemoryManager : &parser->memory),
        content_(content),
        parser_(parser) {}

  xercesc::BinInputStream* makeStream() const override;

 private:
  const FileContent& content_;
  Parser* parser_;
};

}  // namespace MXF::Tessel::XMLUtils
