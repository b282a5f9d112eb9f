#pragma once

// What the model's tests share: failures as text, and a visitor that says which overload was called.

#include <Exceptions/BaseException.h>
#include <Templates/Containers.h>
#include <Utils/TextConversion.h>

#include <string>
#include <typeinfo>

namespace MXF::Tessel::Test {

inline std::string narrow(const wchar_t* text) {
  return std::string(Utils::wstringToString(text));
}
inline std::string narrow(const Templates::WideString& text) {
  return narrow(text.c_str());
}

/// The exception that the action throws as its code, a blank and its message; "none" when it throws nothing.
template <class Action>
std::string failureOf(const Action& action) {
  try {
    action();
  } catch (const Exceptions::BaseException& failure) {
    return std::to_string(failure.code()) + " " + narrow(failure.message());
  }
  return "none";
}

/// A base or member whose destruction is counted, to show that an owner deletes once.
struct Tracked {
  explicit Tracked(int& counter) : deaths(&counter) {}
  Tracked(const Tracked&) = delete;
  Tracked& operator=(const Tracked&) = delete;
  ~Tracked() { ++*deaths; }
  int* deaths;
};

/// Implements every overload of a visitor interface and records for each call the class that the overload names. The
/// classes are const for an interface whose overloads take const references.
template <class Interface, class... Classes>
class OverloadRecorder;
template <class Interface>
class OverloadRecorder<Interface> : public Interface {
 public:
  const std::type_info* called = nullptr;
  int calls = 0;
};
template <class Interface, class Class, class... Rest>
class OverloadRecorder<Interface, Class, Rest...> : public OverloadRecorder<Interface, Rest...> {
 public:
  using OverloadRecorder<Interface, Rest...>::visit;
  void visit(Class& /*visited*/) override {
    this->called = &typeid(Class);
    ++this->calls;
  }
};

}  // namespace MXF::Tessel::Test
