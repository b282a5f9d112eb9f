#pragma once

#include <MetaMetadata/Dictionary.h>
#include <Platform/malloc_alloc.h>
#include <Templates/Containers.h>
#include <Templates/auto_ptr.h>

#include <cstddef>

#define TESSELMXF_LOADER_API __attribute__((visibility("default")))

namespace MXF::Tessel::MetaMetadata::Loading {

class XSDDictionaryLoader2Impl;

/// Fills a dictionary from XML Schema documents whose declarations are annotated after SMPTE ST 434.
///
/// A host creates a loader, may tell it by loadMultiplex() which of the two annotation flavours its schemas use, sets
/// options, and then loads any number of dictionary schemas (element declarations) and scheme schemas (group
/// declarations) into one or more dictionaries. Elements come first: a scheme's groups refer to elements that the
/// dictionary must hold.
///
/// Texts are wide strings of UTF-16 code units (Utils/TextConversion.h). Paths may be written with slashes or
/// backslashes where imports are resolved against them; the file itself is opened by the path as given, in UTF-8. No
/// file but the one given and the ones that it imports by location is ever opened, and nothing is ever fetched from a
/// network.
///
/// Limits bound what a schema may ask for; all are far above what schemas need (SECURITY.md lists them). Where one is
/// exceeded the load fails with "Limit exceeded: more than NUMBER ...": as Exceptions::IOError "PATH: Limit exceeded: ..."
/// for the size of a file; as for content that is not well-formed, with the place, for what a document holds; and as
/// Exceptions::InvalidValue for what a load asks for altogether.
///
/// Every failure is an exception. After any failure the loader stays usable and keeps its flavour and options. An
/// exception of ours that is about a declaration tells where that is (BaseException::location()), in the given document
/// or an import; what is loaded tells the same of itself (PropertyMap::origin()).
///
/// Beside the exceptions named at each operation, any may throw std::bad_alloc; one thrown inside the dictionary pass
/// becomes Exceptions::ParseError "Unknown error in Xerces or XQilla" where there is memory for that. The dictionary is
/// then as after any other failure, and what was built is freed, but for a few small blocks that XQilla loses. Two
/// failures of memory cannot be survived: while the first loader of the process starts the XML libraries, Xerces-C ends
/// the process; and when there is none for the text of a query's error, XQilla frees a block twice.
///
/// Threads: one loader, and the dictionary it fills, are used by one thread at a time. Loaders share nothing that
/// changes, so any number of threads may at the same time make, use and destroy loaders of their own, also on the same
/// files. A dictionary that is complete may be read by any number of threads at once (Dictionary.h).
///
/// Process: the first loader makes Xerces-C and XQilla ready, and they stay so until the end of the process, whatever a
/// host that uses them too initialises and terminates itself, and when; only while the first loader is made, no other
/// thread does so, since these libraries count without a lock. Loaders may be kept by static objects. The shared object
/// may be unloaded when no loader and no dictionary that one has filled is left; the XML libraries then stay in the
/// process, ready for the next time.
class TESSELMXF_LOADER_API XSDDictionaryLoader2 {
 public:
  /// A loader of the URN flavour, all options off.
  XSDDictionaryLoader2();
  /// Frees all documents that the loader has parsed. Dictionaries filled by it are not affected.
  ~XSDDictionaryLoader2();
  XSDDictionaryLoader2(const XSDDictionaryLoader2&) = delete;
  /// Copies flavour, installed queries, options and recorded namespace prefixes from the other loader; each loader
  /// keeps its own parsers and documents. loadMultiplex() is then allowed or refused as it is for the other. Assigning a
  /// loader to itself changes nothing.
  XSDDictionaryLoader2& operator=(const XSDDictionaryLoader2& other);

  static void* operator new(std::size_t size);
  static void* operator new[](std::size_t size);
  static void* operator new(std::size_t size, void* where) noexcept;
  static void* operator new[](std::size_t size, void* where) noexcept;
  static void operator delete(void* block, std::size_t size) noexcept;
  static void operator delete[](void* block, std::size_t size) noexcept;
  static void operator delete(void* block, void* where) noexcept;
  static void operator delete[](void* block, void* where) noexcept;

  /// Reads the target namespace of a multiplex schema, which tells the flavour of the annotations: "urn:SMPTE:S377M"
  /// selects the URN flavour, "http://www.smpte-ra.org/schemas/434/2006/multiplex/S377M/2004" the registry flavour. May
  /// be called again until the first loadDictionary() or loadScheme(); the last successful call decides.
  ///
  /// @param path  every backslash in it is read as a slash.
  /// @throws Exceptions::OperationNotAllowed  loadDictionary() or loadScheme() has been called: "loadMultiplex must be
  ///         called prior to loadDictionary or loadScheme".
  /// @throws Exceptions::IOError  the path, with slashes, names no regular file that can be opened: the path, then " file
  ///         Not Found!"; or the file cannot be read: the path, then ": " and the system's reason.
  /// @throws Exceptions::ParseError  not well-formed: "PATH:LINE:COLUMN: " and the parser's text.
  /// @throws Exceptions::InvalidValue  any other namespace, or none: "Unknown targetNamespace in multiplex file.".
  void loadMultiplex(const Templates::WideString& path);

  /// Reads the element declarations of a dictionary schema: every top-level declaration with an element-label
  /// annotation. They are added in label order, and none of them unless all of them could be read.
  ///
  /// @param path        the schema document; its imports are not followed.
  /// @param dictionary  takes the elements. An exception that it throws itself leaves the elements before in it.
  /// @throws Exceptions::IOError  as of loadMultiplex(), with the path as given.
  /// @throws Exceptions::ParseError  not well-formed ("PATH:LINE:COLUMN: " and the parser's text), or the XML libraries
  ///         fail on it (the library's class and text), as they do on a schema that does not bind the prefix xs.
  /// @throws Exceptions::InvalidMetaElementDeclaration  a declaration has no label text, no registry name, a collection
  ///         no item type or item name, or no prefix is known for the target namespace.
  /// @throws Exceptions::InvalidULDesignator  a label is not 47 characters of 16 hexadecimal bytes joined by dots.
  /// @throws Exceptions::MetaElementAlreadyLoaded  two declarations, or one and the dictionary, share a label.
  /// @throws Exceptions::TypeNotSupportedException  a declaration has no known data type.
  /// @throws Exceptions::SchemeDataMissingException  the schema has no target namespace.
  /// @throws Exceptions::InvalidValue  the load exceeds a limit: "Limit exceeded: more than ...".
  void loadDictionary(const Templates::WideString& path, Dictionary& dictionary);

  /// Reads the group declarations of a scheme schema: every top-level element with a group-key annotation. First the
  /// set references of the dictionary's elements that wait for this schema's groups are resolved; then the sets are
  /// built, each with the attributes of its base types before its own, and added in key order, and after them the local
  /// tags. No set is added unless all of them could be built; references that were resolved stay resolved.
  ///
  /// @param path        the schema document. Schemas that it imports are read when a base type has to be looked for
  ///                    there; their locations are relative to the directory of this path. Imports that this loader has
  ///                    read before, also for loads that failed, are asked for the type first.
  /// @param dictionary  holds the elements that the groups refer to, and takes the sets and local tags.
  /// @throws Exceptions::IOError  as of loadMultiplex(), with the path as given, or that of an import.
  /// @throws Exceptions::ParseError  the document itself is not well-formed. Any other failure of the XML libraries
  ///         reaches the caller as their own exception, such as SAXParseException for an import.
  /// @throws Exceptions::SchemeDataMissingException  no target namespace; a group without key; an attribute without
  ///         required status; a type or base type that is declared nowhere, or that is its own base.
  /// @throws Exceptions::InvalidULDesignator  a key is not 47 characters of 16 hexadecimal bytes.
  /// @throws Exceptions::MetaMetadataSetAlreadyLoaded  two groups, or one and the dictionary, share a key.
  /// @throws Exceptions::InvalidMetaElementDeclaration  a group has no registry name, or no prefix is known for the
  ///         target namespace.
  /// @throws Exceptions::NotFound  an attribute refers to an element that the dictionary does not hold, or an element
  ///         of the dictionary has no XML name.
  /// @throws Exceptions::InvalidValue  a required status, local tag or distinguished value that cannot be read; or the
  ///         load exceeds a limit: "Limit exceeded: more than ...".
  void loadScheme(const Templates::WideString& path, Dictionary& dictionary);

  /// The multiplex namespace of the current flavour, one of the two that loadMultiplex() accepts.
  Templates::WideString getTargetNamespace() const;

  /// Whether groups declared abstract become sets. While off, as it is at first, they are passed over and need no key,
  /// and a base group that is abstract or missing is no error.
  void loadAbstractGroups(bool load);
  /// Whether elements and sets get their documentation as the property "Documentation". Off at first.
  void loadMetaElementDocumentation(bool load);
  /// Whether elements get their length annotation as the property "LengthDescription". Off at first.
  void loadMetaElementLengthDescription(bool load);

 private:
  Templates::auto_ptr<XSDDictionaryLoader2Impl> impl_;
};

}  // namespace MXF::Tessel::MetaMetadata::Loading
