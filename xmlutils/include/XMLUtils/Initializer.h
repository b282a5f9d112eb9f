#pragma once

#include <XMLUtils/Export.h>

#include <xercesc/dom/DOMImplementation.hpp>

#include <memory>

namespace MXF::Tessel::XMLUtils {

/// Makes Xerces-C and XQilla ready, once and until the end of the process: they are never terminated from here, and the
/// shared object stays in the process when it is unloaded (RTLD_NODELETE). A parser, a document or a loader may thus be
/// kept by any static object, and XQilla, which leaves objects of its own in the tables of Xerces-C, is there as long as
/// they are. All that is kept is reachable, so no checker calls it lost.
///
/// Beside a host that uses Xerces-C or XQilla itself this is one more count on their initialisation counters. The host
/// initialises and terminates them as often as it likes, before, between and after: they stay ready, and go on with the
/// memory manager, the locale and the panic handler of whoever initialised Xerces-C first. A memory manager of the host's
/// therefore lives until the end of the process, unless Xerces-C was terminated for the last time before the first call
/// here. A request of the host's for a DOM implementation is answered as without this library.
class TESSELMXF_XMLUTILS_API Initializer {
 public:
  /// The first call initialises both libraries. Any number of threads may call at once; but Xerces-C and XQilla count
  /// without a lock, so during the first call no other thread initialises or terminates them itself.
  static Initializer& instance();

  /// The DOM implementation whose documents, parsed or created but not cloned, evaluate XPath 2 through their
  /// DOMXPathEvaluator face, giving results of the types DOMXPathResult::FIRST_RESULT_TYPE and
  /// DOMXPathResult::ITERATOR_RESULT_TYPE. Not owned by the caller.
  ///
  /// Threads: any thread may create parsers and documents with it. A parser, with all its documents and what is made from
  /// them, is used by one thread at a time; reading a document or evaluating a query counts as using it.
  xercesc::DOMImplementation& domImplementation() const { return *implementation_; }

  Initializer(const Initializer&) = delete;
  Initializer& operator=(const Initializer&) = delete;
  ~Initializer() = delete;

 private:
  Initializer();

  std::unique_ptr<xercesc::DOMImplementation> implementation_;
};

}  // namespace MXF::Tessel::XMLUtils
