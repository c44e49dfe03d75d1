#include "platform/ui/UpDown.h"

#include <QToolButton>
#include <QVBoxLayout>

UpDown::UpDown(QWidget *parent) : QWidget(parent) {
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    const auto add = [this, column](Qt::ArrowType arrow, const QString &name) {
        auto *button = new QToolButton(this);
        button->setObjectName(name);
        button->setAccessibleName(name);
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setFixedSize(fontMetrics().height() + 6, fontMetrics().height() * 3 / 4);
        column->addWidget(button);
        return button;
    };
    connect(add(Qt::UpArrow, QStringLiteral("Augmenter")), &QToolButton::clicked, this, &UpDown::upClicked);
    connect(add(Qt::DownArrow, QStringLiteral("Diminuer")), &QToolButton::clicked, this,
            &UpDown::downClicked);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}
