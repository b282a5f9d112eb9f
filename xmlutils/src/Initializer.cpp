// Makes Xerces-C and XQilla ready, beside a host that may do so too.

#include "xpath/XPathImplementation.h"

#include <XMLUtils/Initializer.h>
#include <XMLUtils/Released.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMImplementationRegistry.hpp>
#include <xercesc/validators/datatype/DatatypeValidatorFactory.hpp>
#include <xqilla/items/AnyAtomicType.hpp>
#include <xqilla/utils/XQillaPlatformUtils.hpp>

namespace MXF::Tessel::XMLUtils {

namespace {

/// Whether XQilla has been initialised in this life of Xerces-C: it then has a type of its own among the built-in ones.
bool isXQillaThere() {
  const auto* types = xercesc::DatatypeValidatorFactory::getBuiltInRegistry();
  return types != nullptr && types->containsKey(AnyAtomicType::fgDT_ANYATOMICTYPE);
}

/// XQilla puts its DOM implementation before Xerces-C's own, and it would answer whatever a host asks for; but its parsers
/// refuse internal DTD subsets, and its documents differ. Only a host that names XQilla's feature is to get it.
void initializeXQilla() {
  const bool isThere = isXQillaThere();
  XQillaPlatformUtils::initialize();
  if (isThere) return;  // whatever stands first stands there by the host's choice
  xercesc::DOMImplementationRegistry::addSource(xercesc::DOMImplementationImpl::getDOMImplementationImpl());
}

/// Xerces-C fills the table of which node may be whose child when a node is first put into another one, without a lock; two
/// first parsers on two threads would meet there.
void fillTableOfChildren(xercesc::DOMImplementation& implementation) {
  const Released<xercesc::DOMDocument> document(implementation.createDocument(nullptr, u"any", nullptr));
}

}  // namespace

Initializer& Initializer::instance() {
  static Initializer& initializer = *new Initializer;
  return initializer;
}

Initializer::Initializer() {
  initializeXQilla();
  implementation_ = std::make_unique<XPath::XPathImplementation>();  // takes its memory from Xerces-C
  fillTableOfChildren(*implementation_);
}

}  // namespace MXF::Tessel::XMLUtils
