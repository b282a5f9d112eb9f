#pragma once

/// Marks what the XML utilities library exports; everything else stays hidden in its shared object.
#define TESSELMXF_XMLUTILS_API __attribute__((visibility("default")))
