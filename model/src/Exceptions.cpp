// The exception family: texts and codes.

#include <Exceptions/Exceptions.h>
#include <Utils/TextConversion.h>

#include <new>
#include <utility>

namespace MXF::Tessel::Exceptions {

using Templates::WideString;

BaseException::BaseException(const wchar_t* message, const char* sourceFile, int line)
    : BaseException(WideString(message), sourceFile, line) {}

BaseException::BaseException(const char* message, const char* sourceFile, int line)
    : BaseException(Utils::stringToWstring(message), sourceFile, line) {}

BaseException::BaseException(WideString message, const char* sourceFile, int line) {
  const WideString throwSite = L" [" + Utils::stringToWstring(sourceFile) + L":" + Utils::toDecimal(line) + L"]";
  const WideString what = message + throwSite;
  texts_ = std::make_shared<const Texts>(Texts{std::move(message), throwSite, what, {}});
}

BaseException::BaseException(const BaseException& other) noexcept = default;
BaseException& BaseException::operator=(const BaseException& other) noexcept = default;
BaseException::~BaseException() = default;

const wchar_t* BaseException::message() const {
  return texts_->message.c_str();
}
const wchar_t* BaseException::what() const {
  return texts_->what.c_str();
}
int BaseException::code() const {
  return 0;
}

void BaseException::setDeclaration(const Utils::SourceLocation& declaration) noexcept {
  try {
    const WideString what = texts_->message + L" (declared at " + declaration.toString() + L")" + texts_->throwSite;
    texts_ = std::make_shared<const Texts>(Texts{texts_->message, texts_->throwSite, what, declaration});
  } catch (const std::bad_alloc&) {  // better the fault without its place than no fault
  }
}

void BaseException::setLocation(const Utils::SourceLocation& location) noexcept {
  try {
    texts_ = std::make_shared<const Texts>(Texts{texts_->message, texts_->throwSite, texts_->what, location});
  } catch (const std::bad_alloc&) {  // as above
  }
}

int InvalidValue::code() const {
  return 16;
}
int InvalidMetaElementDeclaration::code() const {
  return 20;
}
int InvalidULDesignator::code() const {
  return 25;
}
int IOError::code() const {
  return 26;
}
int NotFound::code() const {
  return 31;
}
int ParseError::code() const {
  return 33;
}
int OperationNotAllowed::code() const {
  return 42;
}
int MetaElementAlreadyLoaded::code() const {
  return 44;
}
int MetaMetadataSetAlreadyLoaded::code() const {
  return 45;
}
int SchemeDataMissingException::code() const {
  return 46;
}
int TypeNotSupportedException::code() const {
  return 47;
}

}  // namespace MXF::Tessel::Exceptions
