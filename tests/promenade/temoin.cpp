// Loaded into the program with LD_PRELOAD: says in one line of JSON what is on the screen. It knows Qt's
// widgets and nothing of the program. Orders, one a line, on the socket named by TEMOIN: "etat N" (answered
// once the window system has delivered everything up to the mark N), "tic" (Timer1 expires now), "image FILE"
// (the screen), "fin" (the program ends).

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QListWidget>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QSocketNotifier>
#include <QTableView>
#include <QTimer>
#include <QWindow>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

QJsonArray cadre(const QWidget &widget, const QRect &rect) {
    const QPoint coin = widget.mapToGlobal(rect.topLeft());
    return {coin.x(), coin.y(), rect.width(), rect.height()};
}

QJsonObject dit(const QObject &objet) {
    QJsonObject tout{{"classe", objet.metaObject()->className()}};
    for (const char *nom : {"objectName", "text", "toolTip", "styleSheet", "accessibleDescription",
                            "windowTitle", "enabled", "checked", "visible", "focus"}) {
        const QVariant valeur = objet.property(nom);
        if (valeur.isValid()) {
            tout[QLatin1String(nom)] = QJsonValue::fromVariant(valeur);
        }
    }
    return tout;
}

QJsonValue couleur(const QVariant &valeur) {
    return valeur.isValid() ? QJsonValue(qvariant_cast<QColor>(valeur).name()) : QJsonValue();
}

/// Row 0 of the book's grids is their header.
QJsonObject grille(const QTableView &vue) {
    const QAbstractItemModel &modele = *vue.model();
    QJsonArray cellules;
    QJsonArray lignes;
    QJsonArray colonnes;
    QRect choisies;
    vue.indexAt({}); // lays out what waits for it, as painting does: rows are where they are seen
    for (int colonne = 0; colonne < modele.columnCount(); ++colonne) {
        colonnes << QJsonArray{vue.columnViewportPosition(colonne), vue.columnWidth(colonne)};
    }
    for (int ligne = 0; ligne < modele.rowCount(); ++ligne) {
        QJsonArray rangee;
        for (int colonne = 0; colonne < modele.columnCount(); ++colonne) {
            const QModelIndex index = modele.index(ligne, colonne);
            choisies |= vue.selectionModel()->isSelected(index) ? QRect(colonne, ligne, 1, 1) : QRect();
            rangee << QJsonArray{index.data().toString(), couleur(index.data(Qt::BackgroundRole)),
                                 couleur(index.data(Qt::ForegroundRole))};
        }
        cellules << rangee;
        lignes << QJsonArray{vue.rowViewportPosition(ligne),
                             vue.isRowHidden(ligne) ? 0 : vue.rowHeight(ligne)};
    }
    QJsonObject tout = dit(vue);
    tout["cellules"] = cellules;
    tout["lignes"] = lignes;
    tout["colonnes"] = colonnes;
    tout["selection"] =
        choisies.isEmpty() ? QJsonArray()
                           : QJsonArray{choisies.top(), choisies.bottom(), choisies.left(), choisies.right()};
    tout["surface"] = cadre(*vue.viewport(), vue.viewport()->rect());
    return tout;
}

/// A list as a grid of one column.
QJsonObject liste(const QListWidget &vue) {
    QJsonArray cellules;
    QJsonArray lignes;
    for (int ligne = 0; ligne < vue.count(); ++ligne) {
        const QRect place = vue.visualItemRect(vue.item(ligne));
        cellules << QJsonArray{QJsonArray{vue.item(ligne)->text()}};
        lignes << QJsonArray{place.top(), place.height()};
    }
    const int choisie = vue.currentRow();
    QJsonObject tout = dit(vue);
    tout["cellules"] = cellules;
    tout["lignes"] = lignes;
    tout["colonnes"] = QJsonArray{QJsonArray{0, vue.viewport()->width()}};
    tout["selection"] = choisie < 0 ? QJsonArray() : QJsonArray{choisie, choisie, 0, 0};
    tout["surface"] = cadre(*vue.viewport(), vue.viewport()->rect());
    return tout;
}

template <class Barre>
void ajouteActions(QJsonArray &toutes, const Barre &barre) {
    for (QAction *action : barre.actions()) {
        QJsonObject une = dit(*action);
        une["objectName"] = action->menu() != nullptr ? action->menu()->objectName() : action->objectName();
        une["menu"] = barre.objectName();
        une["surgi"] = barre.isVisible() && barre.isWindow();
        une["cadre"] = cadre(barre, barre.actionGeometry(action));
        toutes << une;
    }
}

QString nomFenetre(const QWidget &fenetre) {
    const auto classe = QLatin1String(fenetre.metaObject()->className());
    return fenetre.objectName().isEmpty() ? classe : fenetre.objectName();
}

QJsonObject fenetre(const QWidget &dessus) {
    QJsonArray objets;
    QJsonObject grilles;
    for (const QWidget *enfant : dessus.findChildren<const QWidget *>()) {
        const auto *vue = qobject_cast<const QTableView *>(enfant);
        if (!enfant->isVisible()) {
            continue;
        }
        if (vue != nullptr && vue->model() != nullptr) {
            grilles[vue->objectName()] = grille(*vue);
        } else if (const auto *une = qobject_cast<const QListWidget *>(enfant)) {
            grilles[une->objectName()] = liste(*une);
        } else if (enfant->property("text").isValid()) {
            QJsonObject un = dit(*enfant);
            un["cadre"] = cadre(*enfant, enfant->rect());
            objets << un;
        }
    }
    const QWindow *ecran = dessus.windowHandle();
    QJsonObject tout = dit(dessus);
    tout["nom"] = nomFenetre(dessus);
    tout["numero"] = double(dessus.winId());
    tout["active"] = dessus.isActiveWindow() && ecran != nullptr && ecran->isExposed();
    tout["objets"] = objets;
    tout["grilles"] = grilles;
    return tout;
}

QByteArray etat(bool occupe) {
    QJsonArray fenetres;
    QJsonArray actions;
    for (const QWidget *widget : QApplication::allWidgets()) {
        if (const auto *menu = qobject_cast<const QMenu *>(widget)) {
            menu->objectName().isEmpty() ? void() : ajouteActions(actions, *menu); // not the bar's extension
        } else if (const auto *barre = qobject_cast<const QMenuBar *>(widget)) {
            ajouteActions(actions, *barre);
        } else if (widget->isWindow() && widget->isVisible()) {
            fenetres << fenetre(*widget);
        }
    }
    const QWidget *modale = QApplication::activeModalWidget();
    return QJsonDocument(QJsonObject{{"fenetres", fenetres},
                                     {"actions", actions},
                                     {"dessus", modale != nullptr ? nomFenetre(*modale) : QString()},
                                     {"occupe", occupe || QApplication::overrideCursor() != nullptr}})
        .toJson(QJsonDocument::Compact);
}

class Temoin : public QObject, public QAbstractNativeEventFilter {
  public:
    Temoin() {
        sockaddr_un adresse{};
        adresse.sun_family = AF_UNIX;
        qstrncpy(adresse.sun_path, qgetenv("TEMOIN").constData(), sizeof adresse.sun_path);
        if (::connect(m_lien, reinterpret_cast<sockaddr *>(&adresse), sizeof adresse) != 0) {
            qFatal("temoin: nobody to talk to");
        }
        connect(new QSocketNotifier(m_lien, QSocketNotifier::Read, this), &QSocketNotifier::activated, this,
                &Temoin::lit);
        qApp->installNativeEventFilter(this);
    }

    /// The mark: a client message of the walk to itself, behind all that it sent before.
    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override {
        quint32 champs[4];
        std::memcpy(champs, message, sizeof champs);
        constexpr quint32 typeMessage = 33;
        constexpr quint32 marque = 0x7E3014;
        if ((champs[0] & 0x7F) != typeMessage || champs[2] != marque) {
            return false;
        }
        m_venue = champs[3];
        m_occupee = QApplication::overrideCursor() != nullptr; // input that came before may wait till after
        QTimer::singleShot(0, this, &Temoin::repond);
        return true;
    }

  private:
    void lit() {
        char morceau[512];
        const auto lus = ::read(m_lien, morceau, sizeof morceau);
        if (lus <= 0) {
            ::_exit(0); // the walk is over
        }
        for (const QByteArray &ordre : QByteArray(morceau, lus).trimmed().split('\n')) {
            if (ordre.startsWith("etat ")) {
                m_attendue = ordre.mid(5).toUInt();
                repond();
            } else if (ordre.startsWith("image ")) {
                QGuiApplication::primaryScreen()->grabWindow(0).save(QString::fromUtf8(ordre.mid(6)), "PNG");
            } else if (ordre == "fin") {
                QCoreApplication::quit();
            } else if (ordre == "tic") {
                tic();
            }
        }
    }

    static void tic() {
        for (const QWidget *dessus : QApplication::topLevelWidgets()) {
            for (QTimer *minuterie : dessus->findChildren<QTimer *>("Timer1")) {
                minuterie->start(0);
            }
        }
    }

    void repond() {
        if (m_attendue == 0 || m_venue < m_attendue) {
            return;
        }
        m_attendue = 0;
        const QByteArray reponse = etat(m_occupee) + '\n';
        for (qsizetype ecrits = 0; ecrits < reponse.size();) {
            const auto n = ::write(m_lien, reponse.constData() + ecrits, size_t(reponse.size() - ecrits));
            if (n <= 0) {
                ::_exit(0);
            }
            ecrits += n;
        }
    }

    int m_lien = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    quint32 m_venue = 0;
    quint32 m_attendue = 0;
    bool m_occupee = false; ///< when it came
};

void commence() {
    if (qEnvironmentVariableIsSet("TEMOIN")) {
        static auto *const temoin = new Temoin;
        Q_UNUSED(temoin)
    }
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(commence)
