#pragma once

#include "Engine.h"

#include <string>
#include <vector>

namespace MXF::Tessel::Test {

/// A text read by the library's implementation and by XQilla's own, whose answers are to be the same.
class Comparison {
 public:
  explicit Comparison(const std::string& xml);

  /// Evaluates the query on every node of the document, and on none, for both types of results. Adds a failure where
  /// the answers differ.
  /// @param step  takes only every so-many-th node.
  void expectEqual(const std::string& query, const Bindings& bindings, std::size_t step = 1);
  void expectEqual(const std::vector<std::string>& queries, const Bindings& bindings, std::size_t step = 1);

  /// The place of the first item, or the failure, as both give it. Keeps a comparison from being one of nothing.
  std::string firstOf(const std::string& query, const Bindings& bindings);

 private:
  struct Side {
    Side(Engine::Kind kind, const std::string& xml);

    Engine engine;
    xercesc::DOMDocument& document;
    std::vector<xercesc::DOMNode*> nodes;
  };

  void expectEqualOn(const xercesc::DOMNode* own, const xercesc::DOMNode* stock, const std::string& query,
                     const xercesc::DOMXPathNSResolver* ownResolver, const xercesc::DOMXPathNSResolver* stockResolver);

  Side own_;
  Side stock_;
};

}  // namespace MXF::Tessel::Test
