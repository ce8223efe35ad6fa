#pragma once

#include <string>

/// What of a web address decides whether a redirect may lead there, both in small letters.
struct WebServer {
  std::string scheme;
  std::string host;
};

/// Whether an answer of one server may send this program to the other. Only to the same host, so
/// that no server can have others asked that only this machine reaches, and never from HTTPS to
/// HTTP. Any thread.
bool mayRedirect(const WebServer& from, const WebServer& to);
