#include "linux/CurlLibrary.h"

#include <dlfcn.h>

namespace {

// The name under which every version of this interface is installed.
constexpr const char* kFile = "libcurl.so.4";

template <class Function>
bool find(void* library, const char* name, Function*& function) {
  function = reinterpret_cast<Function*>(dlsym(library, name));
  return function != nullptr;
}

}  // namespace

const CurlLibrary* CurlLibrary::shared() {
  static CurlLibrary library;
  static const bool loaded = library.load();
  return loaded ? &library : nullptr;
}

bool CurlLibrary::load() {
  void* library = dlopen(kFile, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (!library) {
    return false;
  }
  decltype(&curl_global_init) initialise = nullptr;
  return find(library, "curl_free", free) && find(library, "curl_slist_append", slist_append) &&
         find(library, "curl_slist_free_all", slist_free_all) && find(library, "curl_url", url) &&
         find(library, "curl_url_cleanup", url_cleanup) && find(library, "curl_url_get", url_get) &&
         find(library, "curl_url_set", url_set) &&
         find(library, "curl_easy_cleanup", easy_cleanup) &&
         find(library, "curl_easy_getinfo", easy_getinfo) &&
         find(library, "curl_easy_init", easy_init) &&
         find(library, "curl_easy_setopt", easy_setopt) &&
         find(library, "curl_multi_add_handle", multi_add_handle) &&
         find(library, "curl_multi_cleanup", multi_cleanup) &&
         find(library, "curl_multi_info_read", multi_info_read) &&
         find(library, "curl_multi_init", multi_init) &&
         find(library, "curl_multi_perform", multi_perform) &&
         find(library, "curl_multi_poll", multi_poll) &&
         find(library, "curl_multi_remove_handle", multi_remove_handle) &&
         find(library, "curl_multi_wakeup", multi_wakeup) &&
         find(library, "curl_global_init", initialise) &&
         initialise(CURL_GLOBAL_DEFAULT) == CURLE_OK;
}
