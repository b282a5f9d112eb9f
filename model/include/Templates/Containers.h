#pragma once

#include <Platform/malloc_alloc.h>
#include <Templates/Allocator.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// The containers that cross the library's interfaces: the standard ones, with their memory from
/// Platform::malloc_alloc.
namespace MXF::Tessel::Templates {

/// As in the standard library.
template <class C>
using char_traits = std::char_traits<C>;

/// std::basic_string.
template <class C, class Traits = char_traits<C>, class Allocator = Platform::malloc_alloc>
using basic_string = std::basic_string<C, Traits, StandardAllocator<C, Allocator>>;

/// The wide string of every interface: one UTF-16 code unit per character (Utils/TextConversion.h).
using WideString = basic_string<wchar_t>;
/// UTF-8 text.
using NarrowString = basic_string<char>;

/// std::vector.
template <class T, class Allocator = Platform::malloc_alloc>
using vector = std::vector<T, StandardAllocator<T, Allocator>>;

/// As in the standard library.
template <class First, class Second>
using pair = std::pair<First, Second>;

/// std::map.
template <class Key, class Value, class Less = std::less<Key>, class Allocator = Platform::malloc_alloc>
using map = std::map<Key, Value, Less, StandardAllocator<std::pair<const Key, Value>, Allocator>>;

/// std::set.
template <class Key, class Less = std::less<Key>, class Allocator = Platform::malloc_alloc>
using set = std::set<Key, Less, StandardAllocator<Key, Allocator>>;

namespace Detail {
template <class Entry>
struct MapIterators;
template <class Key, class Value>
struct MapIterators<pair<const Key, Value>> {
  using Iterator = typename map<Key, Value>::iterator;
  using ConstIterator = typename map<Key, Value>::const_iterator;
};
}  // namespace Detail

// The two iterator names are part of the library's interface as it always was, reserved form included.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
/// Iterator over the entries of a map, in key order.
template <class Entry>
using _Rb_tree_iterator = typename Detail::MapIterators<Entry>::Iterator;
/// The same, for reading only.
template <class Entry>
using _Rb_tree_const_iterator = typename Detail::MapIterators<Entry>::ConstIterator;
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)

}  // namespace MXF::Tessel::Templates
