#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/api.h"
#include "platform/coregraphics/CGGeometry.h"
#include "platform/foundation/Subclass.h"
#include "platform/quartzcore/CALayer.h"
#include "platform/uikit/UIColor.h"

class UITapGestureRecognizer;
class UIView;
class UIWindow;

inline constexpr CGFloat UIViewNoIntrinsicMetric = -1;

/// Follows every view of the process, for a host that mirrors views on a screen. Main thread.
class UIViewObserver {
 public:
  virtual ~UIViewObserver() = default;
  /// Something that the view shows, its place or its subviews changed, or its layout became stale.
  virtual void viewChanged(UIView& view) = 0;
  /// The view is being destroyed; only its address may be used.
  virtual void viewDestroyed(const UIView& view) = 0;
};

/// A rectangle on the screen. Frames are in points in the superview. A view owns its subviews and
/// knows its superview weakly. Main thread.
class PLATFORM_API UIView : public Subclass<UIView, NSObject>, public CALayerDelegate {
 public:
  static const ClassOf<UIView> classObject;

  UIView() = default;
  ~UIView() override;

  bool init() override;
  virtual bool initWithFrame(CGRect frame);

  CGRect frame() const { return frame_; }
  void setFrame(CGRect frame);
  /// The view's own rectangle: origin 0,0 and the frame's size.
  CGRect bounds() const { return {{}, frame_.size}; }

  const std::vector<std::shared_ptr<UIView>>& subviews() const { return subviews_; }
  std::shared_ptr<UIView> superview() const { return superview_.lock(); }
  /// Adds the view as the topmost; it leaves its former superview first.
  void addSubview(const std::shared_ptr<UIView>& view);
  void removeFromSuperview();
  /// The window that the view stands in, at any depth; null for none.
  virtual std::shared_ptr<UIWindow> window() const;
  /// Called each time after the view has come to another superview, or to none.
  virtual void didMoveToSuperview();
  /// Called each time after the view has come into another window, or out of the last, with
  /// everything below it: first the view, then its subviews.
  virtual void didMoveToWindow();

  /// The picture that the view shows, where it shows one.
  CALayer& layer();
  void displayLayer(CALayer& layer) override;
  void layerChanged(CALayer& layer) override;

  /// The view's own idea of its size; UIViewNoIntrinsicMetric for a side that it has none of.
  virtual CGSize intrinsicContentSize() const;
  /// The idea has changed: the superview is to be laid out again.
  void invalidateIntrinsicContentSize();

  bool isHidden() const { return hidden_; }
  void setHidden(bool hidden);
  bool isUserInteractionEnabled() const { return userInteractionEnabled_; }
  void setUserInteractionEnabled(bool enabled);

  /// Nothing is transparent.
  const std::optional<UIColor>& backgroundColor() const { return backgroundColor_; }
  void setBackgroundColor(std::optional<UIColor> color);
  /// The tint in force here: the view's own or the nearest superview's, else the system's.
  UIColor tintColor() const;
  void setTintColor(std::optional<UIColor> color);
  /// Radius of the rounded corners, in points.
  CGFloat cornerRadius() const { return cornerRadius_; }
  void setCornerRadius(CGFloat radius);

  /// What assistive technology calls the view; empty for what its class says of itself.
  const std::string& accessibilityLabel() const { return accessibilityLabel_; }
  void setAccessibilityLabel(std::string label);
  /// Whether the view is the chosen one of several alternatives; nothing where it is none of such.
  const std::optional<bool>& accessibilitySelected() const { return accessibilitySelected_; }
  void setAccessibilitySelected(bool selected);

  void addGestureRecognizer(const std::shared_ptr<UITapGestureRecognizer>& recognizer);
  const std::vector<std::shared_ptr<UITapGestureRecognizer>>& gestureRecognizers() const {
    return gestureRecognizers_;
  }

  /// Asks for layoutSubviews before the view is next shown.
  void setNeedsLayout();
  /// Lays out this view and everything below it as far as asked for.
  void layoutIfNeeded();
  /// Places the subviews. Overrides call the superclass's first.
  virtual void layoutSubviews();

  /// Ends editing in the text field that has the focus in or below this view, if there is one.
  /// True when no field keeps the focus. Fields here never refuse, so `force` changes nothing.
  bool endEditing(bool force);

  /// At most one observer; null for none.
  static void setObserver(UIViewObserver* observer);

 protected:
  /// Tells the observer that what the view shows has changed.
  void setNeedsDisplay();

 private:
  void leaveSuperview();
  /// Tells this view, and everything below it, of the window that it now stands in, unless it
  /// knows.
  void tellOfWindow();

  CGRect frame_;
  std::unique_ptr<CALayer> layer_;
  std::vector<std::shared_ptr<UIView>> subviews_;
  std::weak_ptr<UIView> superview_;
  std::weak_ptr<UIWindow> toldWindow_;
  std::optional<UIColor> backgroundColor_;
  std::optional<UIColor> tintColor_;
  std::vector<std::shared_ptr<UITapGestureRecognizer>> gestureRecognizers_;
  std::string accessibilityLabel_;
  std::optional<bool> accessibilitySelected_;
  CGFloat cornerRadius_ = 0;
  bool hidden_ = false;
  bool userInteractionEnabled_ = true;
  bool needsLayout_ = true;
};
