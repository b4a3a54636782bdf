#pragma once

#include <QObject>

namespace stoikal {

/// Lets Enter and the keypad's Enter press the button that has the keyboard, in
/// every window of ours; it watches the events of the whole application. Check
/// boxes and options are no buttons, the space bar is theirs. The toolkit's own
/// dialogs keep their ways.
class EnterKey final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace stoikal
