#pragma once

#include <XMLUtils/Export.h>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMLSParser.hpp>

namespace MXF::Tessel::XMLUtils {

/// What counts towards the limits of a document.
enum class Counting {
  Anew,    ///< What it holds itself.
  Further  ///< Also what those hold that its parser has loaded before it, from the last one on that counts anew.
};

/// Parses a file.
///
/// Namespaces are on; validation and schema processing are off. An internal DTD subset is read and its entities are
/// expanded inline as text. External DTDs and entities are not loaded, and nothing is fetched from a network. Comments
/// and CDATA sections are kept as nodes.
///
/// A document that exceeds one of the limits on size, nesting, attributes, names, entities and document types
/// (SECURITY.md lists them) is treated like one that is not well-formed.
/// Running out of memory is std::bad_alloc, after which the parser can be used again.
///
/// Threads: any number of threads may load at once, each with a parser of its own, also the same file.
///
/// @param path    any path of the file system, in UTF-16 code units; the file is opened by its UTF-8 form.
/// @param parser  a parser of Initializer::domImplementation(); its settings are made here. It owns the document.
/// @param counting  Further for a file that the content of another one leads to: both then share the limits that
///        SECURITY.md marks with a star. A small file can be written to be read under many names.
/// @return the document, or null when the file cannot be opened or is no regular file, such as a directory or a pipe.
/// @throws xercesc::SAXParseException  the content is not well-formed ("PATH:LINE:COLUMN: " and the parser's text) or
///         exceeds a limit ("PATH:LINE:COLUMN: Limit exceeded: more than ..."), with line and column also in the
///         exception.
/// @throws Exceptions::IOError  the file can be opened but not be read (the path, then ": " and the system's reason), or
///         is too large (the path, then ": Limit exceeded: more than 67108864 bytes in a file").
TESSELMXF_XMLUTILS_API xercesc::DOMDocument* loadDocumentFromFile(const wchar_t* path, xercesc::DOMLSParser& parser,
                                                                  Counting counting = Counting::Anew);

}  // namespace MXF::Tessel::XMLUtils
