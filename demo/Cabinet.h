#pragma once

#include <QDate>
#include <QStringList>
#include <exception>

/// What the sample practice is to be like. The same options give the same practice, row for row.
struct OptionsCabinet {
    quint32 graine = 1;
    int patients = 2000; ///< at least 1
    int annees = 2;      ///< half before, half after `aujourdhui`
    int rdv = -1;        ///< exact number of appointments; -1: as many as plausible
    QDate aujourdhui = QDate::currentDate();
    bool ancien = false;  ///< an appointment database from before chairs and day keys
    bool modeles = false; ///< the word processor's templates too, for which LibreOffice is run
};

struct Bilan {
    int patients = 0;
    int rendezVous = 0;
    int actes = 0;
    int images = 0;
    QStringList modelesManquants; ///< those that were asked for and could not be made
};

/// Why no practice was written: a sentence in French.
class ErreurCabinet : public std::exception {
  public:
    explicit ErreurCabinet(QString message) : m_message(std::move(message)), m_what(m_message.toUtf8()) {}
    const QString &message() const { return m_message; }
    const char *what() const noexcept override { return m_what.constData(); }

  private:
    QString m_message;
    QByteArray m_what;
};

/// Writes a whole practice into `dossier`, the path database last: without it nothing looks complete. Throws
/// ErreurCabinet when the folder holds a practice already (nothing is changed) or cannot be written, DbError
/// when a database fails; what was written until then is taken away.
Bilan ecritCabinet(const QString &dossier, const OptionsCabinet &options);
