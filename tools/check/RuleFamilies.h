#pragma once

#include "check/Subject.h"

/// What each rule finds, in files by what they look at. Findings need neither rule nor remedy.
namespace MXF::Tessel::Tool {

// LoadRules.cpp
Findings findFailedLoads(const Subject& subject);
Findings findWrongFiles(const Subject& subject);
Findings findWrongRoots(const Subject& subject);
Findings findFilesWithoutDeclarations(const Subject& subject);
Findings findEmptyDictionary(const Subject& subject);
Findings findLeftOutAbstractGroups(const Subject& subject);

// NameRules.cpp
Findings findSharedXmlNames(const Subject& subject);
Findings findNamelessElements(const Subject& subject);
Findings findRepeatedAttributes(const Subject& subject);
Findings findRepeatedNames(const Subject& subject);

// IdentifierRules.cpp
Findings findSharedLocalTags(const Subject& subject);
Findings findElementsOfManyTags(const Subject& subject);
Findings findImpossibleIdentifiers(const Subject& subject);
Findings findIdentifiersOfOtherKinds(const Subject& subject);
Findings findLabelsOfOtherVersions(const Subject& subject);

// ReferenceRules.cpp
Findings findUnresolvedReferences(const Subject& subject);
Findings findMissingBases(const Subject& subject);
Findings findUnusedElements(const Subject& subject);

// DeclarationRules.cpp
Findings findUntargetedReferences(const Subject& subject);
Findings findUnknownAnnotations(const Subject& subject);
Findings findOtherFlavour(const Subject& subject);
Findings findRepeatedAnnotations(const Subject& subject);
Findings findUnmarkedDeclarations(const Subject& subject);
Findings findUnread(const Subject& subject);
Findings findUnboundPrefixes(const Subject& subject);
Findings findWrongImports(const Subject& subject);
Findings findReferencesWithoutStatus(const Subject& subject);

// ValueRules.cpp
Findings findLostValues(const Subject& subject);
Findings findDoubtfulValues(const Subject& subject);

}  // namespace MXF::Tessel::Tool
