#include "platform/ui/Messages.h"

#include <QApplication>
#include <QMessageBox>

namespace {

constexpr int longestText = 2000; // a box taller than the screen has no reachable button

void prepare(QMessageBox &box, const QString &text, const QString &title) {
    box.setWindowTitle(title.isEmpty() ? QStringLiteral("Tavelin") : title);
    box.setTextFormat(Qt::PlainText);
    QString shown = text.size() > longestText ? text.left(longestText) + QStringLiteral("…") : text;
    shown.replace(QStringLiteral("« "), QStringLiteral("«\u00A0")); // no line ends inside a quotation's marks
    shown.replace(QStringLiteral(" »"), QStringLiteral("\u00A0»"));
    box.setText(shown);
}

} // namespace

void MessageBoxes::show(const QString &text, const QString &title, Icon icon) {
    QMessageBox box(QApplication::activeWindow());
    prepare(box, text, title);
    box.setIcon(icon == Icon::Critical ? QMessageBox::Critical : QMessageBox::NoIcon);
    box.exec();
}

bool MessageBoxes::ask(const QString &text, const QString &title) {
    QMessageBox box(QApplication::activeWindow());
    prepare(box, text, title);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    box.setDefaultButton(QMessageBox::No); // a key too many must not say yes
    return box.exec() == QMessageBox::Yes;
}
