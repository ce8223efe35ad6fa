#pragma once

#include <memory>

#include "animated/FLAnimatedImageView.h"

/// Shows the last frame of the image, which nothing moves: the first one until the last is decoded.
/// Main thread.
void showLastFrame(const std::shared_ptr<FLAnimatedImageView>& view,
                   const std::shared_ptr<FLAnimatedImage>& image);
