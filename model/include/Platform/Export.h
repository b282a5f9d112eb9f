#pragma once

/// Marks what the model library exports; everything else stays hidden in its shared object.
#define TESSELMXF_MODEL_API __attribute__((visibility("default")))
