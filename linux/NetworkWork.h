#pragma once

#include <memory>

#include "linux/HTTPClient.h"

/// What a program does over the network in the background. When this object goes, at the end of the
/// program, that ends: nobody waits for a server that hangs. Main thread.
class NetworkWork {
 public:
  explicit NetworkWork(std::shared_ptr<HTTPClient> client);
  NetworkWork(const NetworkWork&) = delete;
  NetworkWork& operator=(const NetworkWork&) = delete;
  NetworkWork(NetworkWork&&) = delete;
  NetworkWork& operator=(NetworkWork&&) = delete;
  ~NetworkWork();

 private:
  std::shared_ptr<HTTPClient> client_;
};
