#include "base/Error.h"

#include <new>
#include <utility>

#include "base/Text.h"

namespace quorvane {

Error::Error(std::int32_t number, std::u16string description, std::u16string source, std::u16string helpFile,
             std::int32_t helpContext)
    : Number(number),
      Source(std::move(source)),
      Description(std::move(description)),
      HelpFile(std::move(helpFile)),
      HelpContext(helpContext),
      what_(ToUtf8(Description)) {}

std::u16string ErrorText(ErrorNumber number) {
  switch (number) {
    case ErrorNumber::InvalidProcedureCall:
      return u"Invalid procedure call or argument";
    case ErrorNumber::Overflow:
      return u"Overflow";
    case ErrorNumber::OutOfMemory:
      return u"Out of memory";
    case ErrorNumber::SubscriptOutOfRange:
      return u"Subscript out of range";
    case ErrorNumber::TypeMismatch:
      return u"Type mismatch";
    case ErrorNumber::Internal:
      return u"Internal error";
    case ErrorNumber::ObjectNotSet:
      return u"Object variable or With block variable not set";
    case ErrorNumber::InvalidPattern:
      return u"Invalid pattern string";
    case ErrorNumber::InvalidPropertyValue:
      return u"Invalid property value";
    case ErrorNumber::CannotCreateObject:
      return u"Cannot create the object";
    case ErrorNumber::ActionNotSupported:
      return u"Object doesn't support this action";
    case ErrorNumber::DuplicateKey:
      return u"This key is already associated with an element of this collection";
    case ErrorNumber::UserInterrupt:
      return u"Interrupted by the user";
    case ErrorNumber::OutOfStack:
      return u"Out of stack space";
    case ErrorNumber::NotDefined:
      return u"Sub or Function not defined";
    case ErrorNumber::DiskFull:
      return u"Disk full";
    case ErrorNumber::PermissionDenied:
      return u"Permission denied";
    case ErrorNumber::PathFileAccess:
      return u"Path/File access error";
    case ErrorNumber::InvalidFileFormat:
      return u"Invalid file format";
    case ErrorNumber::ResourceNotFound:
      return u"Resource not found";
    case ErrorNumber::ObjectWasUnloaded:
      return u"Object was unloaded";
    case ErrorNumber::InvalidPropertyIndex:
      return u"Invalid property array index";
    case ErrorNumber::AlreadyDisplayed:
      return u"Form already displayed; can't show modally";
    case ErrorNumber::NoSuchMember:
      return u"Object doesn't support this property or method";
    case ErrorNumber::NoSuchNamedArgument:
      return u"Named argument not found";
    case ErrorNumber::WrongArgumentCount:
      return u"Wrong number of arguments or invalid property assignment";
    case ErrorNumber::ArgumentNotOptional:
      return u"Argument not optional";
    case ErrorNumber::NameTaken:
      return u"There is already a control with the name";
    case ErrorNumber::NoSuchControl:
      return u"There is no control";
    case ErrorNumber::DialogCanceled:
      return u"Cancel was selected.";
  }
  return u"Application-defined or object-defined error";
}

void RaiseError(ErrorNumber number) {
  throw Error(static_cast<std::int32_t>(number), ErrorText(number));
}

void RaiseError(ErrorNumber number, std::u16string detail) {
  throw Error(static_cast<std::int32_t>(number), std::move(detail));
}

Error CurrentError() {
  const std::exception_ptr current = std::current_exception();
  if (!current) return {};
  try {
    std::rethrow_exception(current);
  } catch (const Error& e) {
    return e;
  } catch (const std::bad_alloc&) {
    return Error(static_cast<std::int32_t>(ErrorNumber::OutOfMemory), ErrorText(ErrorNumber::OutOfMemory));
  } catch (const std::exception& e) {
    return Error(static_cast<std::int32_t>(ErrorNumber::Internal), FromUtf8(e.what()));
  } catch (...) {
    return Error(static_cast<std::int32_t>(ErrorNumber::Internal), ErrorText(ErrorNumber::Internal));
  }
}

}  // namespace quorvane
