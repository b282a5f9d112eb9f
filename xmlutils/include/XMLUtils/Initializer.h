#pragma once

#include <XMLUtils/Export.h>

#include <xercesc/dom/DOMImplementation.hpp>

#include <memory>

namespace MXF::Tessel::XMLUtils {

/// Keeps Xerces-C and XQilla initialised for the process. Beside a host that initialises and terminates Xerces-C itself
/// this is one more count on its initialisation counter.
class TESSELMXF_XMLUTILS_API Initializer {
 public:
  /// The first call initialises both libraries, thread-safe; they stay so until static objects are destroyed. An object
  /// that needs them in its destructor calls this in its constructor.
  static Initializer& instance();

  /// The DOM implementation whose documents, parsed or created but not cloned, evaluate XPath 2 through their DOMXPathEvaluator face, giving results of
  /// the types DOMXPathResult::FIRST_RESULT_TYPE and DOMXPathResult::ITERATOR_RESULT_TYPE. Not owned by the caller.
  xercesc::DOMImplementation& domImplementation() const { return *implementation_; }

  Initializer(const Initializer&) = delete;
  Initializer& operator=(const Initializer&) = delete;

 private:
  Initializer();
  ~Initializer();

  std::unique_ptr<xercesc::DOMImplementation> implementation_;
};

}  // namespace MXF::Tessel::XMLUtils
