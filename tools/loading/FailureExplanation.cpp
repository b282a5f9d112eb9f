// What failures mean to somebody who wrote the schema. Entry point: explainFailure(); all else is local. A further fault
// is one more row of the table; DuplicateDeclarations.cpp finds what was declared before.

#include "loading/FailureExplanation.h"

#include "loading/Annotations.h"
#include "loading/DuplicateDeclarations.h"
#include "loading/EncodingFault.h"
#include "loading/MissingElement.h"
#include "loading/MissingType.h"
#include "loading/NothingLoaded.h"
#include "loading/SchemaDocument.h"
#include "text/Unicode.h"

#include <MetaMetadata/AttributeRequiredStatus.h>
#include <Utils/TextConversion.h>
#include <XMLUtils/SourcePosition.h>
#include <XMLUtils/TextConversion.h>

#include <xercesc/dom/DOMNodeList.hpp>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string_view>
#include <system_error>

namespace MXF::Tessel::Tool {

using Templates::WideString;
using xercesc::DOMElement;

namespace {

/// What there is to tell a failure's reason from.
struct Case {
  const LoadRecord& record;
  const LoadOutcome& outcome;
  bool withAbstractGroups;
  WideString value;  ///< What the message has after the words by which the row is found.

  [[nodiscard]] const Failure& failure() const { return *record.failure; }
  [[nodiscard]] const Annotations& annotations() const { return annotationsOf(outcome.targetNamespace); }
  [[nodiscard]] bool isInImport() const {
    return failure().place.isKnown() && narrow(failure().place.path()) != record.file.path;
  }
};

/// Calls the action with the declaration at fault, if it can be found.
template <class Action>
void atFault(const Case& fault, const Action& action) {
  const Utils::SourceLocation& place = fault.failure().place;
  if (!place.isKnown()) return;
  lookInto(place.path(), [&](const xercesc::DOMDocument& document) {
    if (const DOMElement* declaration = elementAt(document, place.line(), place.column())) action(*declaration);
  });
}

std::string blanksAround(const WideString& value) {
  constexpr const wchar_t* blanks = L" \t\r\n";
  if (!value.empty() && value.find_first_not_of(blanks) == WideString::npos) return "It is empty, but for blanks. ";
  const bool hasBlanks =
      !value.empty() && (value.find_first_not_of(blanks) != 0 || value.find_last_not_of(blanks) + 1 != value.size());
  return hasBlanks ? "Take out the blanks around the value; they count. " : "";
}

std::string annotation(std::u16string_view source) {
  return "the annotation " + narrowSource(source);
}

std::string remedyOfIoError(const Case& fault) {
  constexpr std::wstring_view ending = L" file Not Found!";
  const WideString& message = fault.failure().message;
  if (message.size() < ending.size()) return "Check that the file is there and can be read.";
  const std::string path = narrow(message.substr(0, message.size() - ending.size()));
  const std::string what = path == fault.record.file.path ? "The file" : "The imported file";
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return what + " is a directory; name a file in it.";
  std::error_code error;
  const bool isThere = std::filesystem::exists(path, error);
  if (error == std::errc::too_many_symbolic_link_levels) {
    return what + " is a loop of symbolic links; let them lead to a file.";
  }
  if (!isThere && std::filesystem::is_symlink(path, ignored)) {
    return what + " is a symbolic link to a file that is not there.";
  }
  if (isThere && !std::filesystem::is_regular_file(path, ignored)) {
    return what + " is a pipe or device; only regular files are read, so write its content into one.";
  }
  if (isThere) return what + " is there, but this user may not read it.";
  return what + " is not there; check its name" +
         (path == fault.record.file.path ? "." : " in the schemaLocation of the import.");
}

constexpr std::u16string_view schemaNamespace = u"http://www.w3.org/2001/XMLSchema";
constexpr std::wstring_view unboundPrefix = L"No namespace for prefix 'xs'";  // the one that the loader's queries use

std::string remedyOfPrefix(const Case& fault) {
  std::string isNoSchema;
  atFault(fault, [&](const DOMElement& root) {
    const XMLCh* uri = root.getNamespaceURI();
    if (isNamed(root, u"schema") && uri != nullptr && uri == schemaNamespace) return;
    isNoSchema = "The file is no XML Schema: its root is " + inQuotes(XMLUtils::toWstring(root.getNodeName()));
    if (isNamed(root, u"schema"))
      isNoSchema += " of " + (uri == nullptr ? "no namespace" : "namespace " + narrow(XMLUtils::toWstring(uri)));
    isNoSchema += ".";
  });
  if (!isNoSchema.empty()) return isNoSchema;
  return "Schemas are searched with the prefix xs, so that the root must bind it, beside any other prefix: "
         "xmlns:xs=\"" +
         narrowSource(schemaNamespace) + "\".";
}

std::string remedyOfXml(const Case& fault) {
  return fault.isInImport() ? "Correct the XML of the imported schema." : "Correct the XML.";
}

/// Of the name of an XML element or attribute; the document cannot be looked into then.
std::string remedyOfUnboundPrefix(const Case& fault) {
  const std::size_t end = fault.value.find(L"' can not be resolved");
  if (end == WideString::npos) return remedyOfXml(fault);  // of xml or xmlns, which nothing else can be bound to
  const WideString prefix = fault.value.substr(0, end);
  std::string uri = "its namespace";
  if (prefix == L"xs" || prefix == L"xsd") uri = narrowSource(schemaNamespace);
  if (prefix == L"xsi") uri = narrowSource(schemaNamespace) + "-instance";
  return "Bind the prefix at the root of the schema: xmlns:" + narrow(prefix) + "=\"" + uri + "\"" +
         (prefix == L"xsd" ? ", and the prefix xs, by which declarations are looked for, too." : ".");
}

std::string remedyOfLimit(const Case& /*fault*/) {
  return "The file is refused since it exceeds a limit that guards hosts against schemas made to exhaust them; "
         "SECURITY.md lists the limits.";
}

std::string remedyOfElementLabel(const Case& fault) {
  return "Give the element its label in " + annotation(fault.annotations().elementLabel) + ".";
}

std::string remedyOfName(const Case& fault) {
  const bool isGroup = fault.record.file.kind == FileKind::Scheme;
  return "Give the declaration its name in " +
         annotation(isGroup ? fault.annotations().groupName : fault.annotations().elementName) + ".";
}

std::string remedyOfAbstractGroup() {
  return "With --abstract-groups every group and every base type needs a group with a key of this flavour; without the "
         "option abstract groups are left out and need none.";
}

std::string remedyOfGroupKey(const Case& fault) {
  bool isAbstract = false;
  atFault(fault, [&](const DOMElement& group) { isAbstract = isDeclaredAbstract(group); });
  if (fault.withAbstractGroups && isAbstract) return remedyOfAbstractGroup();
  return "Give the group its key in " + annotation(fault.annotations().groupKey) + ".";
}

std::string remedyOfBaseGroup(const Case& fault) {
  const WideString base = fault.value.substr(0, fault.value.find(L','));
  const std::string remedy = remedyOfSpelling(Utils::stringToWstring(fault.record.file.path.c_str()), base);
  return remedy.empty() ? remedyOfAbstractGroup() : remedy;
}

std::string remedyOfMissingStatus(const Case& fault) {
  return "Write the required status into " + annotation(fault.annotations().requiredStatus) + ".";
}

std::string remedyOfStatus(const Case& fault) {
  using Status = MetaMetadata::AttributeRequiredStatus::Status;
  std::string words;
  for (const Status status :
       {Status::Required, Status::Optional, Status::DecoderRequired, Status::EncoderRequired, Status::BestEffort}) {
    words += words.empty() ? "" : status == Status::BestEffort ? " or " : ", ";
    words += narrow(MetaMetadata::AttributeRequiredStatus::instance().toString(status));
  }
  return blanksAround(fault.value) + "A required status is " + words + ", exactly so, and not " +
         inQuotes(fault.value) + ".";
}

/// The first element within that has the attribute, or null.
const DOMElement* firstWith(const XMLCh* attribute, const DOMElement& declaration) {
  const xercesc::DOMNodeList* inner = declaration.getElementsByTagName(u"*");
  for (XMLSize_t i = 0; i < inner->getLength(); ++i) {
    const auto& element = static_cast<const DOMElement&>(*inner->item(i));
    if (element.hasAttribute(attribute)) return &element;
  }
  return nullptr;
}

constexpr const char* dataTypeAdvice = "one of the data types of the standard by its name, such as UInt32";

std::string remedyOfType(const Case& fault) {
  const std::string advice =
      std::string("Give it ") + dataTypeAdvice +
      ", UTF16String, UUID or Rational, or, for a collection or reference, an anonymous type inside the element, an "
      "xs:complexType that extends Array, Batch or StrongRefHolder.";
  std::string has = "The element has no type. ";
  atFault(fault, [&](const DOMElement& element) {
    if (element.hasAttribute(u"type")) {
      has = "The element has the type " + inQuotes(XMLUtils::toWstring(element.getAttribute(u"type"))) +
            ", which is no data type; types that a schema names itself or imports are not followed. ";
    } else if (const DOMElement* extension = firstWith(u"base", element)) {
      has = "The type inside the element extends " + inQuotes(XMLUtils::toWstring(extension->getAttribute(u"base"))) +
            ", which is no data type. ";
    }
  });
  return has + advice;
}

std::string remedyOfItemType(const Case& fault) {
  std::string has = "No element within the collection has a type. ";
  atFault(fault, [&](const DOMElement& element) {
    if (element.hasAttribute(u"type")) {
      has = "The element has the type " + inQuotes(XMLUtils::toWstring(element.getAttribute(u"type"))) +
            " itself; write an anonymous type inside the element instead, an xs:complexType that extends it and has an "
            "xs:sequence with one element. ";
    } else if (const DOMElement* item = firstWith(u"type", element)) {
      has = "The element within the collection has the type " +
            inQuotes(XMLUtils::toWstring(item->getAttribute(u"type"))) + ", which is none that items can have. ";
    }
  });
  return has + "Give the element within " + dataTypeAdvice + ".";
}

std::string remedyOfItemName(const Case& /*fault*/) {
  return "Name the items of the collection: an xs:sequence with one xs:element that has a name.";
}

std::string remedyOfIdentifier(const Case& fault) {
  const WideString& text = fault.value;
  constexpr std::ptrdiff_t size = 16;
  const bool isDotted = !text.empty() && text.find_first_not_of(L"0123456789ABCDEFabcdef.") == WideString::npos;
  const auto bytes = std::count(text.begin(), text.end(), L'.') + 1;
  return blanksAround(text) + "Write a label or key as 16 bytes of two hexadecimal digits, joined by dots" +
         (isDotted && bytes > 1 && bytes != size ? "; this has " + std::to_string(bytes) + "." : ".");
}

std::string remedyOfLocalTag(const Case& fault) {
  return blanksAround(fault.value) + "Write a local tag as two bytes of two hexadecimal digits, such as 80.01.";
}

std::string remedyOfValue(const Case& fault) {
  return blanksAround(fault.value) + "Correct the text of the annotation; its form is that of the element's type.";
}

std::string remedyOfNoType(const Case& fault) {
  return remedyOfMissingType(fault.failure());
}

std::string remedyOfTypeCircle(const Case& /*fault*/) {
  return "Types extend each other in a circle; let one of them extend another type, or none.";
}

std::string remedyOfNamespace(const Case& fault) {
  return "Bind a prefix to it at the root of the schema: xmlns:PREFIX=" + inQuotes(fault.value) + ".";
}

std::string remedyOfTargetNamespace(const Case& /*fault*/) {
  return "Give the schema a targetNamespace.";
}

std::string remedyOfDuplicateElement(const Case& /*fault*/) {
  return "Give one of the two another label, or load only one of their schemas.";
}

std::string remedyOfDuplicateSet(const Case& /*fault*/) {
  return "Give one of the two another key, or load only one of their schemes.";
}

std::string remedyOfReference(const Case& fault) {
  const WideString reference = fault.value.substr(0, fault.value.find(L' '));
  return remedyOfMissingElement(fault.failure(), reference, fault.outcome);
}

/// What to say of failures of a class of which the message begins so, or holds that if it begins with "*".
struct Row {
  std::string_view className;
  std::wstring_view start;
  std::string (*remedy)(const Case& fault);
};

constexpr const wchar_t* limitExceeded = L"*Limit exceeded: more than ";  // the path and place may stand before it
constexpr const wchar_t* entityLimitExceeded = L"* entity expansions in the document";  // the parser's own words

constexpr Row rows[] = {
    {"IOError", limitExceeded, remedyOfLimit},
    {"ParseError", limitExceeded, remedyOfLimit},
    {"ParseError", entityLimitExceeded, remedyOfLimit},
    {"SAXParseException", limitExceeded, remedyOfLimit},
    {"SAXParseException", entityLimitExceeded, remedyOfLimit},
    {"InvalidValue", limitExceeded, remedyOfLimit},
    {"IOError", L"", remedyOfIoError},
    {"XQillaException", L"*No namespace for prefix 'xs'", remedyOfPrefix},
    {"ParseError", L"*No namespace for prefix 'xs'", remedyOfPrefix},
    {"ParseError", L"*prefix '", remedyOfUnboundPrefix},
    {"ParseError", L"", remedyOfXml},
    {"SAXParseException", L"*prefix '", remedyOfUnboundPrefix},
    {"SAXParseException", L"", remedyOfXml},
    {"MetaElementAlreadyLoaded", L"", remedyOfDuplicateElement},
    {"MetaMetadataSetAlreadyLoaded", L"", remedyOfDuplicateSet},
    {"NotFound", L"The ", remedyOfReference},
    {"InvalidULDesignator", L"", remedyOfIdentifier},
    {"TypeNotSupportedException", L"", remedyOfType},
    {"InvalidMetaElementDeclaration", L"MetaElement without UniversalLabel.", remedyOfElementLabel},
    {"InvalidMetaElementDeclaration", L"The property 'name' is required.", remedyOfName},
    {"InvalidMetaElementDeclaration", L"MetaElement Declaration of type collection", remedyOfItemType},
    {"InvalidMetaElementDeclaration", L"Empty name attribute", remedyOfItemName},
    {"InvalidMetaElementDeclaration", L"No default prefix defined for namespace: ", remedyOfNamespace},
    {"SchemeDataMissingException", L"MetaMetadataSet without Key declaration.", remedyOfGroupKey},
    {"SchemeDataMissingException", L"MetaMetadataSet without RequiredStatus.", remedyOfMissingStatus},
    {"SchemeDataMissingException", L"Definition of type ", remedyOfBaseGroup},
    {"SchemeDataMissingException", L"*is its own base type", remedyOfTypeCircle},
    {"SchemeDataMissingException", L"*was not found", remedyOfNoType},
    {"SchemeDataMissingException", L"Scheme document without target namespace", remedyOfTargetNamespace},
    {"InvalidValue", L"Unknown required status: ", remedyOfStatus},
    {"InvalidValue", L"Invalid local tag: ", remedyOfLocalTag},
    {"InvalidValue", L"Invalid ", remedyOfValue},
};

/// Of messages that are nothing but a text of the schema.
std::string meaningOf(const Failure& failure) {
  if (failure.className == "InvalidULDesignator") return "Neither a label nor a key";
  if (failure.className == "MetaElementAlreadyLoaded") return "An element with this label is declared already";
  if (failure.className == "MetaMetadataSetAlreadyLoaded") return "A set with this key is declared already";
  return "";
}

/// Whether the text of the document, and not its meaning, may be at fault.
bool isOfParser(const Failure& failure) {
  constexpr std::string_view classes[] = {"ParseError", "SAXParseException", "SAXException", "UTFDataFormatException",
                                          "XMLException"};
  return std::find(std::begin(classes), std::end(classes), failure.className) != std::end(classes);
}

bool applies(const Row& row, const Failure& failure) {
  if (row.className != failure.className) return false;
  const bool isAnywhere = !row.start.empty() && row.start.front() == L'*';
  const std::size_t found = failure.message.find(isAnywhere ? row.start.substr(1) : row.start);
  return isAnywhere ? found != WideString::npos : found == 0;
}

WideString valueAfter(const Row& row, const Failure& failure) {
  const bool isAnywhere = !row.start.empty() && row.start.front() == L'*';
  const std::size_t begin =
      isAnywhere ? failure.message.find(row.start.substr(1)) + row.start.size() - 1 : row.start.size();
  return failure.message.substr(begin);
}

}  // namespace

void findPlace(const SchemaFile& file, Failure& failure) {
  if (failure.place.isKnown() || failure.message.find(unboundPrefix) == WideString::npos) return;
  const WideString path = Utils::stringToWstring(file.path.c_str());
  lookInto(path, [&](const xercesc::DOMDocument& document) {
    const DOMElement& root = *document.getDocumentElement();
    const XMLCh* bound = root.lookupNamespaceURI(u"xs");
    if (bound != nullptr) return;  // then it is an import that does not bind it
    const XMLUtils::SourcePosition position = XMLUtils::positionOf(root);
    failure.place = {std::make_shared<const WideString>(path), position.line, position.column};
  });
}

Explanation explainFailure(const LoadRecord& record, const LoadOutcome& outcome, bool withAbstractGroups) {
  const Failure& failure = *record.failure;
  Explanation explanation;
  const auto* row =
      std::find_if(std::begin(rows), std::end(rows), [&](const Row& each) { return applies(each, failure); });
  if (row != std::end(rows)) {
    explanation.remedy = row->remedy({record, outcome, withAbstractGroups, valueAfter(*row, failure)});
  }
  if (record.file.kind == FileKind::Multiplex) {
    const std::string remedy = remedyOfNoMultiplex(record.file);
    if (!remedy.empty()) explanation.remedy = remedy;
  }
  const bool isLimit = row != std::end(rows) && row->remedy == remedyOfLimit;
  if (isOfParser(failure) && !isLimit) {
    const WideString file = Utils::stringToWstring(record.file.path.c_str());
    Explanation bytes = explainBytes(failure.place.isKnown() ? failure.place.path() : file);
    if (!bytes.remedy.empty()) explanation = std::move(bytes);
  }
  explanation.meaning = meaningOf(failure);
  addFirstDeclaration(failure, outcome, explanation);
  return explanation;
}

}  // namespace MXF::Tessel::Tool
