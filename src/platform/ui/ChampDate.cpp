#include "platform/ui/ChampDate.h"

#include <QAction>
#include <QCalendarWidget>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace {

QIcon arrow(const QColor &colour) {
    QPixmap pixmap(48, 48);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(colour);
    painter.setPen(Qt::NoPen);
    painter.drawPolygon(QPolygon({QPoint(10, 18), QPoint(38, 18), QPoint(24, 34)}));
    return pixmap;
}

} // namespace

ChampDate::ChampDate(QWidget *parent) : QLineEdit(parent) {
    QAction *button = addAction(arrow(palette().color(QPalette::Text)), TrailingPosition);
    button->setText(QStringLiteral("Calendrier")); // what a screen reader calls it
    button->setToolTip(QStringLiteral("Choisir dans le calendrier (Alt+Bas)"));
    connect(button, &QAction::triggered, this, &ChampDate::openCalendar);
    // the longest day, spelled in full, and the button
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("mercredi 30 sept. 2026")) + 40);
    connect(this, &QLineEdit::editingFinished, this, [this] {
        if (const auto read = date()) {
            pick(*read);
        }
    });
}

void ChampDate::setReader(Reader reader, QDate first, QDate last) {
    m_reader = std::move(reader);
    m_first = first;
    m_last = last;
}

void ChampDate::setDate(QDate date) {
    if (date >= m_first && date <= m_last) {
        setText(m_spelling(date));
        setCursorPosition(0);
    }
}

QString ChampDate::complaint() {
    return QStringLiteral("Cette date n'est pas valide. Veuillez la saisir sous la forme 02/12/2026.");
}

void ChampDate::pick(QDate date) {
    if (date >= m_first && date <= m_last) {
        setDate(date);
        emit datePicked(date);
    }
}

void ChampDate::keyPressEvent(QKeyEvent *event) {
    const bool up = event->key() == Qt::Key_Up;
    if (!up && event->key() != Qt::Key_Down) {
        QLineEdit::keyPressEvent(event);
    } else if (event->modifiers() & Qt::AltModifier) {
        openCalendar();
    } else if (const auto read = date()) {
        pick(read->addDays(up ? 1 : -1));
    }
}

void ChampDate::openCalendar() {
    auto *calendar = new QCalendarWidget(this);
    calendar->setWindowFlag(Qt::Popup);
    calendar->setAttribute(Qt::WA_DeleteOnClose);
    calendar->setLocale(QLocale(QLocale::French, QLocale::France));
    calendar->setFirstDayOfWeek(Qt::Monday);
    calendar->setDateRange(m_first, m_last);
    if (const auto read = date()) {
        calendar->setSelectedDate(*read);
    }
    const auto take = [this, calendar](QDate picked) {
        calendar->close();
        pick(picked);
    };
    connect(calendar, &QCalendarWidget::clicked, this, take);
    connect(calendar, &QCalendarWidget::activated, this, take);
    const QRect screenArea = screen()->availableGeometry();
    const QSize size = calendar->sizeHint();
    const QPoint below = mapToGlobal(rect().bottomLeft());
    calendar->move(qMin(below.x(), screenArea.right() - size.width()),
                   qMin(below.y(), screenArea.bottom() - size.height()));
    calendar->show();
    calendar->setFocus();
}
