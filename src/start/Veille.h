#pragma once

#include "platform/db/Watch.h"
#include "practice/Environnement.h"

#include <QObject>
#include <QTimer>

class CarnetMontre;

/// How fresh what is shown is, and why.
struct EtatLecture {
    QString manquee;      ///< why the last reading failed; empty: it did not
    QString lectureSeule; ///< why the book may only be read; empty: it may be written
    QString lieu;         ///< where the book lives; empty: in a file
    bool enContact = true;
    bool suivi = false; ///< what others write is told at once
};

/// Looks out for what other workstations write, and for whether the book can be reached.
class Veille : public QObject {
    Q_OBJECT
  public:
    Veille(const Environnement &env, CarnetMontre &carnet, QObject *parent);

    /// From now on; once is enough.
    void commence();
    EtatLecture etat() const;
    /// Something was told that what is shown may lack.
    bool enRetard() const { return m_enRetard; }

  signals:
    /// What is shown has to be read again.
    void aRelire();

  private:
    void change(const QStringList &annonces);
    void contact(const std::optional<DbError> &perdu);
    void reprendra();
    void relira();

    const Environnement &m_env;
    CarnetMontre &m_carnet;
    bool m_suit = false;
    bool m_enRetard = false;
    QTimer m_reprise; ///< of a reading that failed though the book can be reached
    std::unique_ptr<Watch> m_guet;
};
