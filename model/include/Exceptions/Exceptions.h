#pragma once

#include <Exceptions/BaseException.h>

/// The exception classes of the library. Each derives directly from BaseException, takes the same constructor
/// arguments, and adds nothing but its code().
namespace MXF::Tessel::Exceptions {

/// A value, or a text that should be one, is not allowed where it stands. Code 16.
class TESSELMXF_MODEL_API InvalidValue : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// An element or group declaration lacks something it must have. Code 20.
class TESSELMXF_MODEL_API InvalidMetaElementDeclaration : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// A text is no label or key; the message is the text. Code 25.
class TESSELMXF_MODEL_API InvalidULDesignator : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// A file cannot be read. Code 26.
class TESSELMXF_MODEL_API IOError : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// What was asked for is not there. Code 31.
class TESSELMXF_MODEL_API NotFound : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// A document is not well-formed, or the XML libraries failed on it. Code 33.
class TESSELMXF_MODEL_API ParseError : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// The operation is not allowed in the object's present state. Code 42.
class TESSELMXF_MODEL_API OperationNotAllowed : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// A second element with the same label. Code 44.
class TESSELMXF_MODEL_API MetaElementAlreadyLoaded : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// A second set with the same key. Code 45.
class TESSELMXF_MODEL_API MetaMetadataSetAlreadyLoaded : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// A schema document lacks data that the load needs. Code 46.
class TESSELMXF_MODEL_API SchemeDataMissingException : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

/// A data type that the model does not support. Code 47.
class TESSELMXF_MODEL_API TypeNotSupportedException : public BaseException {
 public:
  using BaseException::BaseException;
  int code() const override;
};

}  // namespace MXF::Tessel::Exceptions
