#pragma once

#include "Document.h"
#include "Reservation.h"
#include "platform/word/WordProcessor.h"

#include <functional>

/// One job: what its verbs do, in order.
class Performance {
  public:
    /// `onPaper`: there is a printer. `sayReserved` hears of the name that is taken.
    Performance(const Office &office, const OfficeFolder &folder, bool onPaper,
                std::function<void(const QString &)> sayReserved)
        : m_office(office), m_folder(folder), m_onPaper(onPaper), m_sayReserved(std::move(sayReserved)) {}

    void operator()(const word::Open &verb);
    void operator()(const word::Reserve &verb);
    void operator()(const word::Select &verb);
    void operator()(const word::Cells &verb);
    void operator()(const word::Type &verb);
    void operator()(const word::TypeIfAny &verb);
    void operator()(const word::Save &);
    void operator()(const word::SaveOver &verb);
    void operator()(const word::Print &);
    void operator()(const word::Close &);

    const WordDocument &made() const { return m_made; }
    /// What was worked on, for messages; empty: nothing yet.
    QString name() const { return m_document ? m_document->name() : QString(); }

  private:
    Document &document();
    void saveAs(const QString &path);
    void printToPdf();

    const Office &m_office;
    const OfficeFolder &m_folder;
    bool m_onPaper;
    std::function<void(const QString &)> m_sayReserved;
    Reservation m_reservation;
    std::optional<Document> m_document;
    QString m_reserved;
    WordDocument m_made;
};
