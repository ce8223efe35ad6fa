#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <optional>
#include <qqmlintegration.h>

#include "dialler/model/CallService.h"
#include "linux/diallerSettings.h"

/// One call from the question to the line: what is offered, what is said, and what a press does.
/// Nothing is dialled but by a press, presses in the first half second in which the buttons can be
/// seen do nothing, and no press dials twice. Main thread.
class CallScreen : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_UNCREATABLE("the program's own")
  Q_PROPERTY(State state READ state NOTIFY changed)
  Q_PROPERTY(bool open READ isOpen NOTIFY changed)
  /// As people write it; empty where it is no number.
  Q_PROPERTY(QString number READ number NOTIFY changed)
  /// Of the number; empty for the one that the user is in.
  Q_PROPERTY(QString country READ country NOTIFY changed)
  Q_PROPERTY(QString question READ question NOTIFY changed)
  /// A sentence in the question's place: what goes on, why nothing can be called, what went wrong.
  Q_PROPERTY(QString sentence READ sentence NOTIFY changed)
  Q_PROPERTY(QString details READ details NOTIFY changed)
  /// How many links came while this one is open, as a sentence; empty for none.
  Q_PROPERTY(QString droppedLinks READ droppedLinks NOTIFY changed)
  Q_PROPERTY(bool offersAnonymous READ offersAnonymous NOTIFY changed)
  Q_PROPERTY(bool offersCall READ offersCall NOTIFY changed)
  Q_PROPERTY(bool canTryAgain READ canTryAgain NOTIFY changed)
  /// How the anonymous button comes to the green one: 0 swipe, 1 hold, 2 always there.
  Q_PROPERTY(int mode READ mode NOTIFY changed)
  /// The picture on it, 1 to 4.
  Q_PROPERTY(int picture READ picture NOTIFY changed)
  /// What can be done about a refusal, as a button says it; empty for nothing.
  Q_PROPERTY(QString remedy READ remedy NOTIFY changed)

 public:
  enum class State {
    Closed,
    Asking,  ///< What a call would be is being found out.
    Offering,
    Refused,
    Placing,
    Told,     ///< Another program has the number and waits for its user.
    Failed,   ///< Nothing was dialled.
    Unknown,  ///< It may be dialled yet.
  };
  Q_ENUM(State)

  /// In milliseconds, from any moment on.
  using Clock = std::function<qint64()>;
  using Settings = std::function<DiallerSettings()>;

  static constexpr qint64 kDeafTime = 500;

  /// `service` is kept by reference.
  CallScreen(CallService& service, Settings settings, Clock clock);

  /// Shows the call of a number or a link, which is anybody's text. False while one is open: that
  /// link is dropped, and counted.
  bool openLink(const QString& text);
  /// For a number that the user has typed and pressed a button for: that press is the one that
  /// places the call, unless there is something that the user has to be told before.
  bool openPressed(const QString& number, bool isAnonymous);
  /// A link came to another process of this program.
  void dropLink();
  /// The settings have changed.
  void readSettings();
  /// A frame with what is now said and offered is on the screen.
  void shown();

  State state() const { return state_; }
  bool isOpen() const { return state_ != State::Closed; }
  QString number() const;
  QString country() const;
  QString question() const;
  QString sentence() const { return sentence_; }
  QString details() const;
  QString droppedLinks() const;
  bool offersAnonymous() const;
  bool offersCall() const;
  bool canTryAgain() const { return state_ == State::Failed; }
  int mode() const { return static_cast<int>(settings_.call.mode); }
  int picture() const { return settings_.call.button; }
  QString remedy() const;

  Q_INVOKABLE void callAnonymously();
  Q_INVOKABLE void call();
  Q_INVOKABLE void tryAgain();
  Q_INVOKABLE void cancel();
  Q_INVOKABLE void takeRemedy();
  /// At once, however it is asked for: the window goes.
  void close();

 signals:
  void changed();
  void closed();
  /// The settings' page with that pane is wanted; empty for the first page.
  void settingsWanted(const QString& pane);

 private:
  enum class Choice { None, Anonymous, Open };
  enum class Remedy { None, ChoosePrefix, OpenSettings, LookAgain };

  void start(const QString& text, Choice pressed);
  void ask();
  void take(const CallOffer& offer);
  void press(Choice choice);
  void place(Choice choice);
  void finish(const CallResult& result);
  void become(State state, const QString& sentence = {});
  bool hears() const;
  const CallPlan& plan(Choice choice) const;
  std::optional<Refusal> refusal() const;
  Remedy remedyFor() const;

  CallService& service_;
  Settings readSettings_;
  Clock clock_;
  DiallerSettings settings_;
  State state_ = State::Closed;
  QString text_;
  std::optional<CallOffer> offer_;
  Choice pressed_ = Choice::None;  // what was asked for last
  QString sentence_;
  QString remark_;                 // said beside the next offer
  std::optional<qint64> shownAt_;  // since when the buttons can be seen
  int dropped_ = 0;
  unsigned question_ = 0;  // answers to earlier ones come too late
};
