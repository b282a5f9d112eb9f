#pragma once

/// Which sanitizer the program is built with; each compiler has its own way to tell.
#if defined(__has_feature)
#define TESSELMXF_HAS_FEATURE(feature) __has_feature(feature)
#else
#define TESSELMXF_HAS_FEATURE(feature) 0
#endif
#if defined(__SANITIZE_ADDRESS__) || TESSELMXF_HAS_FEATURE(address_sanitizer)
#define TESSELMXF_ADDRESS_SANITIZER
#endif
#if defined(__SANITIZE_THREAD__) || TESSELMXF_HAS_FEATURE(thread_sanitizer)
#define TESSELMXF_THREAD_SANITIZER
#endif
