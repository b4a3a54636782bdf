#pragma once

#include <QWidget>

namespace stoikal {

/// The arrow between the two sides of an equation.
class ReactionArrow final : public QWidget
{
    Q_OBJECT

public:
    explicit ReactionArrow(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace stoikal
