#pragma once

#include "platform/ui/UpDown.h"
#include "support/Texte.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTest>

template <typename T>
T &controle(const QWidget &fenetre, const QString &nom) {
    return *fenetre.findChild<T *>(nom);
}
inline QString texte(const QWidget &fenetre, const char *champ) {
    return controle<QLineEdit>(fenetre, q(champ)).text();
}

/// Works in a window, gestures parted by ";": "Text1=ROUX" pastes over and leaves the field, ">BtnOK"
/// presses,
/// "^UpDown1" and "_UpDown1" are its two arrows, "+zola" looks a name up, whose first patient is highlighted,
/// "!" picks.
inline void joue(const QWidget &fenetre, const QString &gestes) {
    for (const QString &geste : gestes.split(u';')) {
        const QString quoi = geste.mid(1);
        if (geste[0] == u'>') {
            controle<QAbstractButton>(fenetre, quoi).click();
        } else if (geste[0] == u'^' || geste[0] == u'_') {
            const QString sens = geste[0] == u'^' ? q("Augmenter") : q("Diminuer");
            controle<QAbstractButton>(controle<UpDown>(fenetre, quoi), sens).click();
        } else if (geste[0] == u'+') {
            controle<QLineEdit>(fenetre, q("TxtPatient")).setText(quoi);
        } else if (geste[0] == u'!') {
            QTest::keyClick(&controle<QLineEdit>(fenetre, q("TxtPatient")), Qt::Key_Return);
        } else {
            auto &champ = controle<QLineEdit>(fenetre, geste.section(u'=', 0, 0));
            champ.selectAll();
            QTest::keyClick(&champ, Qt::Key_Delete);
            QGuiApplication::clipboard()->setText(geste.section(u'=', 1));
            champ.paste();
            emit champ.editingFinished();
        }
    }
}
