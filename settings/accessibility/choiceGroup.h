#pragma once

class AccessibleItem;
class QKeyEvent;
class QQuickItem;

/// Radio buttons that stand side by side in one item: Tab reaches one of them, the arrow keys go
/// from one to the next. Main thread.

/// Makes one of them the stop of the Tab key: the one with the focus, else the checked one, else
/// the first. For members to call when one of these changes.
void updateTabStopAmong(const QQuickItem& parent);

/// Moves the focus to the neighbour when the key is an arrow to the left or right. False, and
/// nothing has happened, for any other key.
bool moveAmongChoices(AccessibleItem& member, const QKeyEvent& event);
