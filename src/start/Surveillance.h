#pragma once

#include "platform/db/LockTest.h"
#include "practice/Environnement.h"

#include <QObject>
#include <thread>

/// Looks at the book while it is used: whether it is whole, and whether its folder keeps two programs from
/// writing at once. A book that fails is only read from then on; one that is whole forgets a few of the
/// writings that its history has kept for long enough.
class Surveillance : public QObject {
    Q_OBJECT
  public:
    Surveillance(const Environnement &env, QObject *parent) : QObject(parent), m_env(env) {}

    /// Once, and beside `fenetre`: after its next picture, which would have to share the machine with it.
    void commenceApresImage(QWidget &fenetre);

  signals:
    /// Its picture is on the screen.
    void commencee();
    /// env.lectureSeule says why the book may only be read.
    void lectureSeule();

  protected:
    bool eventFilter(QObject *objet, QEvent *evenement) override;

  private:
    void commence();
    void trouve(const QString &raison);

    const Environnement &m_env;
    LockTest m_verrous;
    std::jthread m_lecture; ///< stopped and waited for before the rest goes
};
