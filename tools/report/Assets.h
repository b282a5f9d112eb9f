#pragma once

/// The files below templates/, style/ and script/, built into the tool. EmbedAssets.cmake writes the definitions.
namespace MXF::Tessel::Tool::Assets {

extern const char* const page;
extern const char* const overview;
extern const char* const tree;
extern const char* const set;
extern const char* const attributes;
extern const char* const element;
extern const char* const filters;
extern const char* const tags;
extern const char* const link;
extern const char* const links;
extern const char* const type;

extern const char* const layoutStyle;
extern const char* const contentStyle;
extern const char* const printStyle;

extern const char* const themeScript;
extern const char* const searchScript;
extern const char* const filtersScript;
extern const char* const treeScript;

}  // namespace MXF::Tessel::Tool::Assets
