#pragma once

#include <string>

namespace quorvane::com {

/// What DllRegisterServer and DllUnregisterServer do, for the user alone and without administrator rights: the classes
/// of RegistrationData below HKEY_CURRENT_USER\Software\Classes, and the add-in in the host's list.

/// `file` is the whole path of the program file. Raises what the registry refuses; what was written stays then.
void RegisterServer(const std::u16string& file);
/// Takes out what RegisterServer writes and nothing else: a key in which someone put more stays.
void UnregisterServer();

}  // namespace quorvane::com
