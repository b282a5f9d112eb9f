# Writes the definitions of the constants in Assets.h: cmake -DOUTPUT=file -P EmbedAssets.cmake -- name=path...
#
# A text becomes one raw string literal. Its delimiter is one that no HTML, CSS or JavaScript has a use for.
set(definitions "#include \"report/Assets.h\"\n\nnamespace MXF::Tessel::Tool::Assets {\n\n")
set(is_asset FALSE)
math(EXPR last "${CMAKE_ARGC} - 1")
foreach(i RANGE ${last})
  set(argument "${CMAKE_ARGV${i}}")
  if(is_asset)
    string(REGEX MATCH "^([A-Za-z]+)=(.+)$" matched "${argument}")
    set(name "${CMAKE_MATCH_1}")
    file(READ "${CMAKE_MATCH_2}" text)
    string(APPEND definitions "const char* const ${name} = R\"-asset-(${text})-asset-\";\n\n")
  elseif(argument STREQUAL "--")
    set(is_asset TRUE)
  endif()
endforeach()
string(APPEND definitions "}  // namespace MXF::Tessel::Tool::Assets\n")
file(WRITE "${OUTPUT}" "${definitions}")
