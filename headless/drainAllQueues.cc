#include "headless/drainAllQueues.h"

#include "platform/foundation/DispatchQueue.h"
#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"

void drainAllQueues() {
  auto& queue = MainQueue::shared();
  do {
    GlobalQueue::shared().waitUntilIdle();
    DispatchQueue::waitUntilAllIdle();
    queue.runTurn();
    // In this order: once the background is idle nobody else adds to the main queue.
  } while (!GlobalQueue::shared().isIdle() || !DispatchQueue::areAllIdle() || !queue.isIdle());
}
