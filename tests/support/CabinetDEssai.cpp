#include "support/CabinetDEssai.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>

namespace {

QString empreinte(const QString &fichier) {
    QFile contenu(fichier);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!contenu.open(QIODevice::ReadOnly) || !hash.addData(&contenu)) {
        return QStringLiteral("illisible");
    }
    return QString::fromLatin1(hash.result().toHex());
}

void copie(const QString &de, const QString &vers) {
    QDir().mkpath(vers);
    QDirIterator contenu(de, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (contenu.hasNext()) {
        const QFileInfo source(contenu.next());
        const QString cible = vers + source.filePath().mid(de.size());
        if (source.isDir()) {
            QDir().mkpath(cible);
        } else {
            QFile::copy(source.filePath(), cible);
        }
    }
}

} // namespace

CabinetDEssai::CabinetDEssai(const QString &sousDossier) : m_dossier(m_temporaire.filePath(sousDossier)) {
    static const CabinetDEssai modele{options()};
    copie(modele.dossier(), m_dossier);
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
    m_env.patience = std::chrono::milliseconds(300);
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
        const QString fichier = fichiers.next();
        liste << QDir(m_dossier).relativeFilePath(fichier) + u' ' + empreinte(fichier);
    }
    liste.sort();
    return liste;
}
