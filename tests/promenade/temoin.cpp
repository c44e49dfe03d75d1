// Loaded into the program with LD_PRELOAD: says in one line of JSON what is on the screen. It knows Qt's
// widgets and nothing of the program. Orders, one a line, on the socket named by TEMOIN: "etat N" (answered
// once the window system has delivered everything up to the mark N), "tic" (Timer1 expires now), "fin" (the
// program ends).

#include <QAbstractNativeEventFilter>
#include <QApplication>
#include <QDateTimeEdit>
#include <QHeaderView>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTableView>
#include <QTimer>
#include <QWindow>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

QString nomFenetre(const QWidget &fenetre) {
    const auto classe = QLatin1String(fenetre.metaObject()->className());
    return fenetre.objectName().isEmpty() ? classe : fenetre.objectName();
}

QJsonArray cadre(const QWidget &widget, const QRect &rect) {
    const QPoint coin = widget.mapToGlobal(rect.topLeft());
    return {coin.x(), coin.y(), rect.width(), rect.height()};
}

QJsonValue couleur(const QVariant &valeur) {
    return valeur.isValid() ? QJsonValue(qvariant_cast<QColor>(valeur).name()) : QJsonValue();
}

QJsonArray cellule(const QAbstractItemModel &modele, const QModelIndex &index) {
    return {modele.data(index, Qt::DisplayRole).toString(), couleur(modele.data(index, Qt::BackgroundRole)),
            couleur(modele.data(index, Qt::ForegroundRole))};
}

QJsonArray etendue(const QItemSelectionModel &selection) {
    QRect toutes;
    for (const QModelIndex &index : selection.selectedIndexes()) {
        toutes |= QRect(index.column(), index.row(), 1, 1);
    }
    return toutes.isEmpty() ? QJsonArray()
                            : QJsonArray{toutes.top(), toutes.bottom(), toutes.left(), toutes.right()};
}

QJsonObject grille(const QTableView &vue) {
    const QAbstractItemModel &modele = *vue.model();
    const QWidget &surface = *vue.viewport();
    QJsonArray cellules;
    QJsonArray lignes;
    QJsonArray colonnes;
    for (int ligne = 0; ligne < modele.rowCount(); ++ligne) {
        QJsonArray rangee;
        for (int colonne = 0; colonne < modele.columnCount(); ++colonne) {
            rangee << cellule(modele, modele.index(ligne, colonne));
        }
        cellules << rangee;
        lignes << QJsonArray{vue.isRowHidden(ligne) ? -1 : vue.rowViewportPosition(ligne),
                             vue.rowHeight(ligne)};
    }
    QJsonArray titres;
    for (int colonne = 0; colonne < modele.columnCount(); ++colonne) {
        colonnes << QJsonArray{vue.columnViewportPosition(colonne), vue.columnWidth(colonne)};
        titres << modele.headerData(colonne, Qt::Horizontal).toString();
    }
    const QHeaderView &entete = *vue.horizontalHeader();
    return {{"cellules", cellules},
            {"lignes", lignes},
            {"colonnes", colonnes},
            {"titres", titres},
            {"focus", vue.hasFocus()},
            {"courante", vue.currentIndex().row()},
            {"selection", etendue(*vue.selectionModel())},
            {"surface", cadre(surface, surface.rect())},
            {"entete", cadre(entete, entete.rect())}};
}

/// What a widget says, or an invalid value when it is none of those that say something.
QJsonValue texteDe(const QWidget &widget) {
    for (const char *propriete : {"date", "text", "currentText"}) {
        const QVariant valeur = widget.property(propriete);
        if (valeur.isValid() && !valeur.toString().isNull()) {
            return valeur.toString(); // a date as yyyy-MM-dd
        }
    }
    return {};
}

QJsonObject objet(const QWidget &widget) {
    QJsonObject dit{{"nom", widget.objectName()},   {"classe", widget.metaObject()->className()},
                    {"texte", texteDe(widget)},     {"bulle", widget.toolTip()},
                    {"gras", widget.font().bold()}, {"actif", widget.isEnabled()},
                    {"focus", widget.hasFocus()},   {"cadre", cadre(widget, widget.rect())}};
    if (const auto *bouton = qobject_cast<const QAbstractButton *>(&widget)) {
        dit["coche"] = bouton->isChecked();
    }
    return dit;
}

QJsonArray actions(const QWidget &barre) {
    QJsonArray toutes;
    for (const QAction *action : barre.actions()) {
        const auto *menu = qobject_cast<const QMenu *>(&barre);
        const auto *barreMenus = qobject_cast<const QMenuBar *>(&barre);
        const QRect place = menu ? menu->actionGeometry(const_cast<QAction *>(action))
                                 : barreMenus->actionGeometry(const_cast<QAction *>(action));
        toutes << QJsonObject{{"menu", barre.objectName()},
                              {"nom", action->menu() ? action->menu()->objectName() : action->objectName()},
                              {"texte", action->text()},
                              {"actif", action->isEnabled()},
                              {"coche", action->isChecked()},
                              {"visible", action->isVisible()},
                              {"cadre", cadre(barre, place)}};
    }
    return toutes;
}

bool parle(const QWidget &widget) {
    return qobject_cast<const QLabel *>(&widget) || qobject_cast<const QLineEdit *>(&widget) ||
           qobject_cast<const QAbstractButton *>(&widget) || qobject_cast<const QDateTimeEdit *>(&widget) ||
           widget.inherits("QComboBox");
}

QJsonObject fenetre(const QWidget &dessus) {
    QJsonArray objets;
    QJsonObject grilles;
    for (const QWidget *enfant : dessus.findChildren<const QWidget *>()) {
        if (!enfant->isVisible()) {
            continue;
        }
        const auto *vue = qobject_cast<const QTableView *>(enfant);
        if (vue != nullptr && vue->model() != nullptr) {
            grilles[vue->objectName()] = grille(*vue);
        } else if (parle(*enfant)) {
            objets << objet(*enfant);
        }
    }
    const QWindow *ecran = dessus.windowHandle();
    return {{"nom", nomFenetre(dessus)},
            {"titre", dessus.windowTitle()},
            {"modale", dessus.isModal()},
            {"active", dessus.isActiveWindow() && ecran != nullptr && ecran->isExposed()},
            {"numero", double(dessus.winId())},
            {"objets", objets},
            {"grilles", grilles}};
}

QByteArray etat() {
    QJsonArray fenetres;
    QJsonArray menus;
    QJsonArray barre;
    QJsonArray surgis;
    for (const QWidget *dessus : QApplication::topLevelWidgets()) {
        if (dessus->isVisible()) {
            const auto *menu = qobject_cast<const QMenu *>(dessus);
            menu ? surgis << actions(*menu) : fenetres << fenetre(*dessus);
        }
        for (const QMenu *menu :
             dessus->isWindow() ? dessus->findChildren<const QMenu *>() : QList<const QMenu *>()) {
            for (const QJsonValue &action : actions(*menu)) {
                menus << action;
            }
        }
        for (const QMenuBar *une : dessus->findChildren<const QMenuBar *>()) {
            barre = actions(*une);
        }
    }
    const QWidget *modale = QApplication::activeModalWidget();
    return QJsonDocument(QJsonObject{{"fenetres", fenetres},
                                     {"menus", menus},
                                     {"barre", barre},
                                     {"surgis", surgis},
                                     {"dessus", modale ? nomFenetre(*modale) : QString()},
                                     {"occupe", QApplication::overrideCursor() != nullptr}})
        .toJson(QJsonDocument::Compact);
}

class Temoin : public QObject, public QAbstractNativeEventFilter {
  public:
    Temoin() {
        sockaddr_un adresse{};
        adresse.sun_family = AF_UNIX;
        qstrncpy(adresse.sun_path, qgetenv("TEMOIN").constData(), sizeof adresse.sun_path);
        const int porte = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        if (::bind(porte, reinterpret_cast<sockaddr *>(&adresse), sizeof adresse) != 0 ||
            ::listen(porte, 1) != 0) {
            qFatal("temoin: no socket");
        }
        auto *venue = new QSocketNotifier(porte, QSocketNotifier::Read, this);
        connect(venue, &QSocketNotifier::activated, this, [this, porte, venue] {
            venue->setEnabled(false);
            m_lien = ::accept4(porte, nullptr, nullptr, SOCK_CLOEXEC);
            connect(new QSocketNotifier(m_lien, QSocketNotifier::Read, this), &QSocketNotifier::activated,
                    this, &Temoin::lit);
        });
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
        QTimer::singleShot(0, this, &Temoin::repond);
        return true;
    }

  private:
    void lit() {
        char morceau[256];
        const auto lus = ::read(m_lien, morceau, sizeof morceau);
        if (lus <= 0) {
            ::_exit(0); // the walk is over
        }
        m_recu.append(morceau, lus);
        for (qsizetype fin = m_recu.indexOf('\n'); fin >= 0; fin = m_recu.indexOf('\n')) {
            const QByteArray ordre = m_recu.left(fin);
            m_recu.remove(0, fin + 1);
            obeit(ordre);
        }
    }

    void obeit(const QByteArray &ordre) {
        if (ordre.startsWith("etat ")) {
            m_attendue = ordre.mid(5).toUInt();
            repond();
        } else if (ordre == "fin") {
            QCoreApplication::quit();
        } else if (ordre == "tic") {
            for (const QWidget *dessus : QApplication::topLevelWidgets()) {
                if (auto *minuterie = dessus->findChild<QTimer *>("Timer1")) {
                    minuterie->start(0);
                }
            }
        }
    }

    void repond() {
        if (m_attendue == 0 || m_venue < m_attendue) {
            return;
        }
        m_attendue = 0;
        const QByteArray reponse = etat() + '\n';
        for (qsizetype ecrits = 0; ecrits < reponse.size();) {
            const auto n = ::write(m_lien, reponse.constData() + ecrits, size_t(reponse.size() - ecrits));
            if (n <= 0) {
                ::_exit(0);
            }
            ecrits += n;
        }
    }

    int m_lien = -1;
    quint32 m_venue = 0;
    quint32 m_attendue = 0;
    QByteArray m_recu;
};

void commence() {
    if (qEnvironmentVariableIsSet("TEMOIN")) {
        static auto *const temoin = new Temoin;
        Q_UNUSED(temoin)
    }
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(commence)
