#pragma once

#include "platform/doors.h"

namespace stoikal {

class Messages;
struct Places;

/// The dialogs of the desktop with one rule for all windows: the file of the
/// password is never what they give. Who chooses it is told so and chooses again.
class GuardedDialogs final : public Dialogs
{
public:
    GuardedDialogs(Dialogs& dialogs, Messages& messages, const Places& places)
        : m_dialogs(dialogs)
        , m_messages(messages)
        , m_places(places)
    {
    }

    std::optional<Choice> OpenFile(QWidget* parent, const Request& request) override;
    std::optional<Choice> AppendToFile(QWidget* parent, const Request& request) override;
    std::optional<QColor> ChooseColour(QWidget* parent, const QColor& initial,
                                       const QList<QColor>& ownColours) override;

private:
    using Chooser = std::optional<Choice> (Dialogs::*)(QWidget*, const Request&);
    std::optional<Choice> ChooseAnother(Chooser chooser, QWidget* parent, Request request);

    Dialogs& m_dialogs;
    Messages& m_messages;
    const Places& m_places;
};

} // namespace stoikal
