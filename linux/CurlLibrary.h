#pragma once

#include <curl/curl.h>

/// The functions of libcurl that are used, by their names there. The library, with the twenty that
/// it needs in turn, is loaded when it is first asked for: linked to the program it would hold up
/// the first page, and whatever fetches nothing. `quietdial-settings --version` then takes 49 ms
/// instead of 34, of the processor's time 24 instead of 17, and 29 MB instead of 24 (the least of
/// 31 runs of each, in turn, on two busy cores).
struct CurlLibrary {
  /// Loaded and made ready once, and never unloaded; null where the library is not installed. Any
  /// thread.
  static const CurlLibrary* shared();

  // NOLINTBEGIN(readability-identifier-naming)
  decltype(&curl_free) free;
  decltype(&curl_slist_append) slist_append;
  decltype(&curl_slist_free_all) slist_free_all;
  decltype(&curl_url) url;
  decltype(&curl_url_cleanup) url_cleanup;
  decltype(&curl_url_get) url_get;
  decltype(&curl_url_set) url_set;
  decltype(&curl_easy_cleanup) easy_cleanup;
  decltype(&curl_easy_getinfo) easy_getinfo;
  decltype(&curl_easy_init) easy_init;
  decltype(&curl_easy_setopt) easy_setopt;
  decltype(&curl_multi_add_handle) multi_add_handle;
  decltype(&curl_multi_cleanup) multi_cleanup;
  decltype(&curl_multi_info_read) multi_info_read;
  decltype(&curl_multi_init) multi_init;
  decltype(&curl_multi_perform) multi_perform;
  decltype(&curl_multi_poll) multi_poll;
  decltype(&curl_multi_remove_handle) multi_remove_handle;
  decltype(&curl_multi_wakeup) multi_wakeup;
  // NOLINTEND(readability-identifier-naming)

 private:
  CurlLibrary() = default;
  bool load();
};
