#include "Performance.h"

#include "SavedFile.h"

#include <QDir>
#include <QFileInfo>

Document &Performance::document() {
    if (!m_document) {
        throw WordError(QStringLiteral("Aucun document n'est ouvert."));
    }
    return *m_document;
}

void Performance::operator()(const word::Open &verb) {
    m_document.reset();
    m_document.emplace(m_office, verb.path);
}

void Performance::operator()(const word::Reserve &verb) {
    m_reserved = Reservation::take(verb.paths);
    m_sayReserved(m_reserved);
}

void Performance::operator()(const word::Select &verb) {
    if (!document().select(verb.bookmark)) {
        throw WordError(
            QStringLiteral("Le modèle « %1 » n'a pas de signet « %2 ».").arg(name(), verb.bookmark));
    }
}

void Performance::operator()(const word::Cells &verb) {
    document().fill(verb.texts);
}

void Performance::operator()(const word::Type &verb) {
    document().type(verb.text);
}

void Performance::operator()(const word::TypeIfAny &verb) {
    if (document().select(verb.bookmark)) {
        document().type(verb.text);
    }
}

void Performance::saveAs(const QString &path) {
    const QString made = m_folder.temporary() + QStringLiteral("/document.doc");
    document().storeWord(made);
    replaceFile(made, path);
}

void Performance::operator()(const word::Save &) {
    saveAs(m_reserved);
    m_made.saved = m_reserved;
}

void Performance::operator()(const word::SaveOver &verb) {
    saveAs(verb.path);
}

void Performance::printToPdf() {
    const QString made = m_folder.temporary() + QStringLiteral("/document.pdf");
    document().storePdf(made);
    const QFileInfo wanted(m_reserved);
    m_made.pdf = addFile(made, wanted.path() + u'/' + wanted.completeBaseName() + QStringLiteral(".pdf"));
}

void Performance::operator()(const word::Print &) {
    try {
        if (!m_onPaper) {
            printToPdf();
        } else if (!document().print()) {
            throw WordError(QStringLiteral("L'imprimante refuse le document : rien n'est imprimé."));
        }
    } catch (const WordError &error) {
        if (m_made.saved.isEmpty()) {
            throw;
        }
        throw WordError(error.sentence() + QStringLiteral(" Il est enregistré dans le fichier « %1 ».")
                                               .arg(QDir::toNativeSeparators(m_made.saved)));
    }
}

void Performance::operator()(const word::Close &) {
    m_document.reset();
}
