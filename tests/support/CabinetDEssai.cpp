#include "support/CabinetDEssai.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <filesystem>

CabinetDEssai::CabinetDEssai(const QString &sousDossier) : m_dossier(m_temporaire.filePath(sousDossier)) {
    static const CabinetDEssai modele{options()};
    std::filesystem::copy(QFile::encodeName(modele.dossier()).toStdString(),
                          QFile::encodeName(m_dossier).toStdString(),
                          std::filesystem::copy_options::recursive);
    ouvre(Base::Chemins)
        .execute(SqlText("Update Chemin Set LeChemin = ")
                 << texte(QDir::toNativeSeparators(m_dossier + QStringLiteral("/Donnees")))
                 << ", CheminBase = "
                 << texte(QDir::toNativeSeparators(m_dossier + QStringLiteral("/Base"))));
}

CabinetDEssai::CabinetDEssai(const OptionsCabinet &voulu)
    : m_dossier(m_temporaire.filePath(QStringLiteral("cabinet"))) {
    ecritCabinet(m_dossier, voulu);
}

const Environnement &CabinetDEssai::environnement() {
    m_env.maintenant = [this] { return maintenant; };
    m_env.messages = &messages;
    m_env.traitementDeTexte = [this] { return std::make_unique<RecordingWord>(word); };
    m_env.fichierReglages = m_temporaire.filePath(QStringLiteral("reglages.ini"));
    m_env.patience = std::chrono::milliseconds(300);
    m_env.rythme = std::chrono::milliseconds(0); // the timer's tick is a test's own
    Database chemins = ouvre(Base::Chemins);
    m_env.prendEmplacements(LitChemin(chemins).value());
    return m_env;
}

QString CabinetDEssai::fichier(Base base) const {
    const SchemaBase &s = schema(base);
    switch (s.emplacement) {
    case Emplacement::Racine:
        return m_dossier + QStringLiteral("/Donnees/Fichiers/") + s.fichier;
    case Emplacement::BaseDesDonnees:
        return m_dossier + QStringLiteral("/Base/Fichiers/") + s.fichier;
    case Emplacement::Cabinet:
        break;
    }
    return m_dossier + u'/' + s.fichier;
}

QStringList CabinetDEssai::empreintes() const {
    QStringList liste;
    QDirIterator fichiers(m_dossier, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (fichiers.hasNext()) {
        QFile fichier(fichiers.next());
        const bool lisible = fichier.open(QIODevice::ReadOnly);
        const QByteArray contenu = QCryptographicHash::hash(fichier.readAll(), QCryptographicHash::Sha256);
        liste << QDir(m_dossier).relativeFilePath(fichier.fileName()) + u' ' +
                     (lisible ? QString::fromLatin1(contenu.toHex()) : QString());
    }
    liste.sort();
    return liste;
}
