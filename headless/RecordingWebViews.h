#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "headless/Recorder.h"
#include "platform/foundation/NSURLRequest.h"
#include "platform/services.h"

/// Loads the pages of web views in the background and draws nothing; each start and each end of a
/// load is recorded. Main thread.
class RecordingWebViews : public WebViewService {
 public:
  /// Gets a page and gives the height of its content in points; nothing when there is no page. Runs
  /// on any thread.
  using Loader = std::function<std::optional<double>(const NSURLRequest&)>;

  RecordingWebViews(Loader loader, std::shared_ptr<Recorder> recorder);

  void load(UIWebView& view) override;

 private:
  std::shared_ptr<const Loader> loader_;
  std::shared_ptr<Recorder> recorder_;
};
