#pragma once

#include "platform/ui/DatesFr.h"

#include <QLineEdit>
#include <functional>
#include <optional>

/// A date in the long French form, or in another, typed or picked in a calendar: its button or Alt+Down opens
/// that, Up and Down move by a day. What spells no date stays as it was typed.
class ChampDate : public QLineEdit {
    Q_OBJECT
  public:
    /// The date that a typed text spells, nothing for any other text.
    using Reader = std::function<std::optional<QDate>(const QString &)>;

    explicit ChampDate(QWidget *parent = nullptr);

    /// The field takes the dates from `first` to `last` that `reader` understands. To be called first.
    void setReader(Reader reader, QDate first, QDate last);
    /// Another form for its dates.
    void setSpelling(QString (*spelling)(QDate)) { m_spelling = spelling; }
    void setDate(QDate date);
    std::optional<QDate> date() const { return m_reader(text()); }
    /// What the user is told when the text spells no date.
    static QString complaint();

  signals:
    /// The user chose or spelled a date; it may be the one that was there.
    void datePicked(QDate date);

  protected:
    void keyPressEvent(QKeyEvent *event) override;

  private:
    void openCalendar();
    void pick(QDate date);

    Reader m_reader;
    QDate m_first;
    QDate m_last;
    QString (*m_spelling)(QDate) = DatesFr::jourComplet;
};
