#include "automation/com/registration/server_registration.h"

#include <string>
#include <vector>

#include "automation/com/system/failure.h"
#include "automation/com/system/identifiers.h"
#include "automation/com/system/module.h"
#include "automation/com/system/pointer.h"
#include "automation/com/system/text.h"
#include "automation/com/system/type_library.h"
#include "automation/registry.h"

// The headers of the compiler lack these two.
extern "C" HRESULT STDAPICALLTYPE RegisterTypeLibForUser(ITypeLib*, OLECHAR*, OLECHAR*);
extern "C" HRESULT STDAPICALLTYPE UnRegisterTypeLibForUser(REFGUID, WORD, WORD, LCID, SYSKIND);

namespace automation::com {
namespace {

constexpr const wchar_t* classes_key = L"Software\\Classes";

enum class Place { machine, user };

HKEY root_of(Place place) { return place == Place::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER; }

/// One value of a key below the classes; an empty name is the key's own value.
struct Entry {
  std::string key;
  std::string name;
  std::wstring value;
};

std::vector<Entry> entries_of(const RegisteredClass& known) {
  const ClassDescription& description = *known.description;
  const std::string identifier = description.identifier();
  const std::string class_id = guid_text(identifiers_of(description).class_id);
  const std::wstring help = to_wide(description.help);
  const std::string versioned = identifier + ".1";
  const std::string key = "CLSID\\" + class_id;
  return {
      {identifier, "", help},
      {identifier + "\\CLSID", "", to_wide(class_id)},
      {identifier + "\\CurVer", "", to_wide(versioned)},
      {versioned, "", help},
      {versioned + "\\CLSID", "", to_wide(class_id)},
      {key, "", help},
      {key + "\\ProgID", "", to_wide(versioned)},
      {key + "\\VersionIndependentProgID", "", to_wide(identifier)},
      {key + "\\Programmable", "", L""},
      {key + "\\TypeLib", "", to_wide(guid_text(type_library_id(description.library)))},
      {key + "\\Version", "", L"1.0"},
      {key + "\\InprocServer32", "", path_of(own_module())},
      {key + "\\InprocServer32", "ThreadingModel", L"Apartment"},
  };
}

/// The keys that hold everything about a class.
std::vector<std::string> keys_of(const RegisteredClass& known) {
  const std::string identifier = known.description->identifier();
  return {identifier, identifier + ".1", "CLSID\\" + guid_text(identifiers_of(*known.description).class_id)};
}

std::wstring full_key(const std::string& key) { return std::wstring(classes_key) + L"\\" + to_wide(key); }

HRESULT write(Place place, const Entry& entry) {
  const auto size = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
  const std::wstring name = to_wide(entry.name);
  return HRESULT_FROM_WIN32(
      static_cast<DWORD>(RegSetKeyValueW(root_of(place), full_key(entry.key).c_str(),
                                         name.empty() ? nullptr : name.c_str(), REG_SZ, entry.value.c_str(), size)));
}

HRESULT remove(Place place, const std::string& key) {
  const LSTATUS status = RegDeleteTreeW(root_of(place), full_key(key).c_str());
  return status == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(static_cast<DWORD>(status));
}

bool is_writable(Place place) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root_of(place), classes_key, 0, KEY_WRITE, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

HRESULT register_type_library(Place place) {
  Pointer<ITypeLib> library;
  const HRESULT result = own_type_library(library.put());
  if (FAILED(result)) return result;
  std::wstring path = path_of(own_module());
  return place == Place::machine ? RegisterTypeLib(library.get(), path.data(), nullptr)
                                 : RegisterTypeLibForUser(library.get(), path.data(), nullptr);
}

void unregister_type_library(Place place) {
  Pointer<ITypeLib> library;
  TLIBATTR* told = nullptr;
  if (FAILED(own_type_library(library.put())) || FAILED(library->GetLibAttr(&told))) return;
  const auto unregister = place == Place::machine ? &UnRegisterTypeLib : &UnRegisterTypeLibForUser;
  unregister(told->guid, told->wMajorVerNum, told->wMinorVerNum, told->lcid, told->syskind);
  library->ReleaseTLibAttr(told);
}

HRESULT register_in(Place place) {
  for (const RegisteredClass& known : loaded_classes())
    for (const Entry& entry : entries_of(known))
      if (const HRESULT result = write(place, entry); FAILED(result)) return result;
  return register_type_library(place);
}

HRESULT unregister_in(Place place) {
  HRESULT worst = S_OK;
  for (const RegisteredClass& known : loaded_classes())
    for (const std::string& key : keys_of(known))
      if (const HRESULT result = remove(place, key); FAILED(result)) worst = result;
  unregister_type_library(place);
  return worst;
}

}  // namespace

HRESULT register_server() noexcept {
  return guarded([] { return register_in(is_writable(Place::machine) ? Place::machine : Place::user); });
}

HRESULT unregister_server() noexcept {
  return guarded([] {
    const HRESULT user = unregister_in(Place::user);
    if (!is_writable(Place::machine)) return user;
    const HRESULT machine = unregister_in(Place::machine);
    return FAILED(machine) ? machine : user;
  });
}

}  // namespace automation::com
