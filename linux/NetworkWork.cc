#include "linux/NetworkWork.h"

#include <utility>

#include "platform/foundation/GlobalQueue.h"

NetworkWork::NetworkWork(std::shared_ptr<HTTPClient> client) : client_(std::move(client)) {}

NetworkWork::~NetworkWork() {
  client_->stop();
  GlobalQueue::shared().waitUntilIdle();
}
