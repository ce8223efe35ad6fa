#include "headless/RecordingWebViews.h"

#include <utility>

#include "platform/foundation/GlobalQueue.h"
#include "platform/foundation/MainQueue.h"
#include "platform/uikit/UIWebView.h"

RecordingWebViews::RecordingWebViews(Loader loader, std::shared_ptr<Recorder> recorder)
    : loader_(std::make_shared<const Loader>(std::move(loader))), recorder_(std::move(recorder)) {}

void RecordingWebViews::load(UIWebView& view) {
  recorder_->record(LoadStartEvent{view.request()->url, view.request()->timeoutInterval});
  const std::weak_ptr<UIWebView> weakView = cast<UIWebView>(view.shared_from_this());
  GlobalQueue::shared().async([weakView, loader = loader_, recorder = recorder_,
                               request = *view.request(), number = view.loadNumber()] {
    const auto height = (*loader)(request);
    MainQueue::shared().async([weakView, recorder, url = request.url, number, height] {
      recorder->record(LoadFinishEvent{url, height.has_value()});
      const auto loaded = weakView.lock();
      if (!loaded) {
        return;
      }
      if (height) {
        loaded->finishLoad(number, {loaded->frame().size.width, *height});
      } else {
        loaded->failLoad(number);
      }
    });
  });
}
