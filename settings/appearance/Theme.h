#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <qqmlintegration.h>

#include "platform/uikit/metrics.h"
#include "settings/appearance/palette.h"

class QJSEngine;
class QQmlEngine;

/// Every measure, font and colour of the window's own, for QML and for C++; lengths are in points,
/// times in milliseconds. One for the process; main thread.
class Theme : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON
  /// Pixels a point, of the screen that the window is on.
  Q_PROPERTY(double devicePixelRatio MEMBER devicePixelRatio_ NOTIFY devicePixelRatioChanged)
  Q_PROPERTY(double hairline READ hairline NOTIFY devicePixelRatioChanged)
  Q_PROPERTY(QColor textColor READ textColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor pageColor READ pageColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor tint READ tint NOTIFY colorsChanged)
  Q_PROPERTY(QColor separatorColor READ separatorColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor pressedShade READ pressedShade NOTIFY colorsChanged)
  Q_PROPERTY(QColor chevronColor READ chevronColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor placeholderColor READ placeholderColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor focusColor READ focusColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor scrollBarColor READ scrollBarColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor barColor READ barColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor barLineColor READ barLineColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor segmentChosenColor READ segmentChosenColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor wheelColor READ wheelColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor sheetColor READ sheetColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor sheetLineColor READ sheetLineColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor dimColor READ dimColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor slideDimColor READ slideDimColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor slideShadowColor READ slideShadowColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor paperColor READ paperColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor webPaperColor READ webPaperColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor noteColor READ noteColor NOTIFY colorsChanged)
  Q_PROPERTY(QColor complaintColor READ complaintColor NOTIFY colorsChanged)
  Q_PROPERTY(QFont bodyFont READ bodyFont CONSTANT)
  Q_PROPERTY(QFont titleFont READ titleFont CONSTANT)
  Q_PROPERTY(QFont noteFont READ noteFont CONSTANT)
  Q_PROPERTY(QFont segmentFont READ segmentFont CONSTANT)
  Q_PROPERTY(double focusWidth MEMBER kFocusWidth CONSTANT)
  Q_PROPERTY(double cursorWidth MEMBER kCursorWidth CONSTANT)
  Q_PROPERTY(double barHeight MEMBER kBarHeight CONSTANT)
  Q_PROPERTY(double barMargin MEMBER kBarMargin CONSTANT)
  Q_PROPERTY(double barPictureMargin MEMBER kBarPictureMargin CONSTANT)
  Q_PROPERTY(double barGap MEMBER kBarGap CONSTANT)
  Q_PROPERTY(double backWidth MEMBER kBackWidth CONSTANT)
  Q_PROPERTY(double backHeight MEMBER kBackHeight CONSTANT)
  Q_PROPERTY(double backStroke MEMBER kBackStroke CONSTANT)
  Q_PROPERTY(double pressedOpacity MEMBER kPressedOpacity CONSTANT)
  Q_PROPERTY(double disabledOpacity MEMBER kDisabledOpacity CONSTANT)
  Q_PROPERTY(double hitSize MEMBER kHitSize CONSTANT)
  Q_PROPERTY(double indicatorMargin MEMBER kIndicatorMargin CONSTANT)
  Q_PROPERTY(double chevronWidth MEMBER kChevronWidth CONSTANT)
  Q_PROPERTY(double chevronHeight MEMBER kChevronHeight CONSTANT)
  Q_PROPERTY(double chevronStroke MEMBER kChevronStroke CONSTANT)
  Q_PROPERTY(double checkmarkWidth MEMBER kCheckmarkWidth CONSTANT)
  Q_PROPERTY(double checkmarkHeight MEMBER kCheckmarkHeight CONSTANT)
  Q_PROPERTY(double checkmarkStroke MEMBER kCheckmarkStroke CONSTANT)
  Q_PROPERTY(double scrollBarWidth MEMBER kScrollBarWidth CONSTANT)
  Q_PROPERTY(double scrollBarMargin MEMBER kScrollBarMargin CONSTANT)
  Q_PROPERTY(double scrollBarShortest MEMBER kScrollBarShortest CONSTANT)
  Q_PROPERTY(double flickVelocity MEMBER kFlickVelocity CONSTANT)
  Q_PROPERTY(double flickDeceleration MEMBER kFlickDeceleration CONSTANT)
  Q_PROPERTY(double segmentRadius MEMBER kSegmentRadius CONSTANT)
  Q_PROPERTY(double segmentLine MEMBER kSegmentLine CONSTANT)
  Q_PROPERTY(double segmentPressedOpacity MEMBER kSegmentPressedOpacity CONSTANT)
  Q_PROPERTY(double pillPadding MEMBER kPillPadding CONSTANT)
  Q_PROPERTY(int smallestText MEMBER kSmallestText CONSTANT)
  Q_PROPERTY(double noticeMargin MEMBER kNoticeMargin CONSTANT)
  Q_PROPERTY(double noticeSpacing MEMBER kNoticeSpacing CONSTANT)
  Q_PROPERTY(double noticeMark MEMBER kNoticeMark CONSTANT)
  Q_PROPERTY(int noticeLines MEMBER kNoticeLines CONSTANT)
  Q_PROPERTY(double crossSize MEMBER kCrossSize CONSTANT)
  Q_PROPERTY(double crossStroke MEMBER kCrossStroke CONSTANT)
  Q_PROPERTY(int wheelSpokes MEMBER kWheelSpokes CONSTANT)
  Q_PROPERTY(int wheelTime MEMBER kWheelTime CONSTANT)
  Q_PROPERTY(double wheelSpokeWidth MEMBER kWheelSpokeWidth CONSTANT)
  Q_PROPERTY(double wheelSpokeLength MEMBER kWheelSpokeLength CONSTANT)
  Q_PROPERTY(double wheelFaintest MEMBER kWheelFaintest CONSTANT)
  Q_PROPERTY(double webNoteMargin MEMBER kWebNoteMargin CONSTANT)
  Q_PROPERTY(int slideTime MEMBER kSlideTime CONSTANT)
  Q_PROPERTY(int releaseTime MEMBER kReleaseTime CONSTANT)
  Q_PROPERTY(double slideParallax MEMBER kSlideParallax CONSTANT)
  Q_PROPERTY(double slideDim MEMBER kSlideDim CONSTANT)
  Q_PROPERTY(double slideShadowWidth MEMBER kSlideShadowWidth CONSTANT)
  Q_PROPERTY(double edgeWidth MEMBER kEdgeWidth CONSTANT)
  Q_PROPERTY(double alertWidth MEMBER kAlertWidth CONSTANT)
  Q_PROPERTY(double alertRadius MEMBER kAlertRadius CONSTANT)
  Q_PROPERTY(double alertPadding MEMBER kAlertPadding CONSTANT)
  Q_PROPERTY(double alertSpacing MEMBER kAlertSpacing CONSTANT)
  Q_PROPERTY(double mailWidth MEMBER kMailWidth CONSTANT)
  Q_PROPERTY(double mailMargin MEMBER kMailMargin CONSTANT)
  Q_PROPERTY(double mailGap MEMBER kMailGap CONSTANT)
  Q_PROPERTY(double mailSizeGap MEMBER kMailSizeGap CONSTANT)
  Q_PROPERTY(double composeMargin MEMBER kComposeMargin CONSTANT)
  Q_PROPERTY(double composeWidth MEMBER kComposeWidth CONSTANT)
  Q_PROPERTY(double composeTextHeight MEMBER kComposeTextHeight CONSTANT)

 public:
  static constexpr double kFocusWidth = 2;
  static constexpr double kCursorWidth = 2;

  static constexpr double kBarHeight = 44;
  static constexpr double kBarMargin = 8;
  static constexpr double kBarPictureMargin = 15;
  static constexpr double kBarGap = 6;
  static constexpr double kBackWidth = 12;
  static constexpr double kBackHeight = 20;
  static constexpr double kBackStroke = 2.25;
  static constexpr double kPressedOpacity = 0.3;
  static constexpr double kDisabledOpacity = 0.35;
  static constexpr double kHitSize = 44;

  static constexpr double kIndicatorMargin = metrics::kAccessoryMargin;
  static constexpr double kChevronWidth = 8;
  static constexpr double kChevronHeight = 13;
  static constexpr double kChevronStroke = 2;
  static constexpr double kCheckmarkWidth = 15;
  static constexpr double kCheckmarkHeight = 12;
  static constexpr double kCheckmarkStroke = 2;

  static constexpr double kScrollBarWidth = 2.5;
  static constexpr double kScrollBarMargin = 3;
  static constexpr double kScrollBarShortest = 24;
  /// In points a second, and in points a second each second.
  static constexpr double kFlickVelocity = 4000;
  static constexpr double kFlickDeceleration = 1500;

  static constexpr double kSegmentRadius = 4;
  static constexpr double kSegmentLine = 1;
  static constexpr double kSegmentPressedOpacity = 0.15;

  static constexpr double kPillPadding = 4;
  static constexpr int kSmallestText = 11;

  static constexpr double kNoticeMargin = 10;
  static constexpr double kNoticeSpacing = 2;
  static constexpr double kNoticeMark = 4;
  static constexpr int kNoticeLines = 6;
  static constexpr double kCrossSize = 14;
  static constexpr double kCrossStroke = 2;

  static constexpr int kWheelSpokes = 12;
  static constexpr int kWheelTime = 1000;
  static constexpr double kWheelSpokeWidth = 0.09;
  static constexpr double kWheelSpokeLength = 0.27;
  static constexpr double kWheelFaintest = 0.25;
  static constexpr double kWebNoteMargin = 15;

  static constexpr int kSlideTime = 400;
  static constexpr int kReleaseTime = 300;
  /// How far the page below moves to the left and how much it dims while another slides over it.
  static constexpr double kSlideParallax = 0.3;
  static constexpr double kSlideDim = 0.1;
  static constexpr double kSlideShadowWidth = 8;
  /// What stands in a row begins beside it: a press there is never kept from a field.
  static constexpr double kEdgeWidth = metrics::kTextInset;

  static constexpr double kAlertWidth = 270;
  static constexpr double kAlertRadius = 7;
  static constexpr double kAlertPadding = 18;
  static constexpr double kAlertSpacing = 4;
  static constexpr double kMailWidth = 560;
  static constexpr double kMailMargin = 15;
  static constexpr double kMailGap = 5;
  static constexpr double kMailSizeGap = 8;
  static constexpr double kComposeMargin = 12;
  static constexpr double kComposeWidth = 400;
  static constexpr double kComposeTextHeight = 132;

  static Theme& shared();
  /// For QML: the shared one.
  static Theme* create(QQmlEngine* engine, QJSEngine* scripts);

  double hairline() const { return 1 / devicePixelRatio_; }

  static QColor textColor() { return shown(palette::kText); }
  static QColor pageColor() { return shown(palette::kPage); }
  static QColor tint() { return shown(palette::kTint); }
  static QColor separatorColor() { return shown(palette::kSeparator); }
  static QColor pressedShade() { return shown(palette::kPressed); }
  static QColor chevronColor() { return shown(palette::kChevron); }
  static QColor placeholderColor() { return shown(palette::kPlaceholder); }
  static QColor focusColor() { return shown(palette::kTint); }
  static QColor scrollBarColor() { return shown(palette::kScrollBar); }
  static QColor barColor() { return shown(palette::kBar); }
  static QColor barLineColor() { return shown(palette::kBarLine); }
  static QColor segmentChosenColor() { return shown(palette::kSegmentChosen); }
  static QColor wheelColor() { return shown(palette::kWheel); }
  static QColor sheetColor() { return shown(palette::kSheet); }
  static QColor sheetLineColor() { return shown(palette::kSheetLine); }
  static QColor dimColor() { return shown(palette::kDim); }
  static QColor slideDimColor() { return shown(palette::kSlideDim); }
  static QColor slideShadowColor() { return shown(palette::kSlideShadow); }
  static QColor paperColor() { return shown(palette::kRow); }
  static QColor webPaperColor() { return shown(palette::kWebPaper); }
  static QColor noteColor() { return shown(palette::kSecondaryText); }
  static QColor complaintColor() { return shown(palette::kRed); }

  /// Of texts in bars and sheets; the rows' own follow the user's text size.
  static QFont bodyFont();
  static QFont titleFont();
  static QFont noteFont();
  static QFont segmentFont();

 signals:
  void devicePixelRatioChanged();
  void colorsChanged();

 private:
  // Private, or the toolkit would make one of its own for QML.
  Theme();

  static QColor shown(const palette::Shades& shades);

  double devicePixelRatio_ = 1;
};
