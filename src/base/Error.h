#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace quorvane {

/// Numbers of the errors that the platform itself raises.
enum class ErrorNumber : std::int32_t {
  InvalidProcedureCall = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  TypeMismatch = 13,
  UserInterrupt = 18,
  OutOfStack = 28,
  NotDefined = 35,
  Internal = 51,
  DiskFull = 61,
  PermissionDenied = 70,
  PathFileAccess = 75,
  ObjectNotSet = 91,
  InvalidPattern = 93,
  InvalidFileFormat = 321,
  ResourceNotFound = 326,
  ObjectWasUnloaded = 364,
  InvalidPropertyValue = 380,
  InvalidPropertyIndex = 381,
  AlreadyDisplayed = 400,
  CannotCreateObject = 429,
  NoSuchMember = 438,
  ActionNotSupported = 445,
  NoSuchNamedArgument = 448,
  ArgumentNotOptional = 449,
  WrongArgumentCount = 450,
  DuplicateKey = 457,
  NameTaken = 727,
  NoSuchControl = 730,
  DialogCanceled = 32755,
};

/// The one error type. It unwinds to the handler at the top of an event, a command or a program.
class Error : public std::exception {
 public:
  Error() = default;
  Error(std::int32_t number, std::u16string description, std::u16string source = u"VBQuorvane",
        std::u16string helpFile = {}, std::int32_t helpContext = 0);

  bool Is(ErrorNumber number) const { return Number == static_cast<std::int32_t>(number); }

  /// The description in UTF-8.
  const char* what() const noexcept override { return what_.c_str(); }

  std::int32_t Number = 0;  ///< 0: no error
  std::u16string Source;
  std::u16string Description;
  std::u16string HelpFile;
  std::int32_t HelpContext = 0;
  std::int32_t LastDllError = 0;

 private:
  std::string what_;
};

/// The platform's own words for one of its numbers, such as "Overflow".
std::u16string ErrorText(ErrorNumber number);

/// Raises an error of the platform with its own words, or with `detail` in their place.
[[noreturn]] void RaiseError(ErrorNumber number);
[[noreturn]] void RaiseError(ErrorNumber number, std::u16string detail);

/// The error that is being handled, for use inside a catch clause; Number 0 outside of one. Exceptions of the standard
/// library come as error 7 (no memory) or 51 (any other), with their text.
Error CurrentError();

/// Reads through a pointer that may hold nothing: raises error 91 instead of touching what is not there.
template <class Pointer>
auto& Deref(const Pointer& pointer) {
  if (!pointer) RaiseError(ErrorNumber::ObjectNotSet);
  return *pointer;
}

}  // namespace quorvane
