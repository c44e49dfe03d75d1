#include "grid/DessinGrille.h"

#include "grid/ImagesRDV.h"
#include "platform/files/StoredPaths.h"
#include "platform/ui/FlexGridModel.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const QColor bleu(0, 128, 255);
const QColor rouge(255, 0, 0);
const QColor gris(160, 160, 160);

/// A grid of 08:00 … 12:00 by 15 minutes with one appointment column, and one picture on disk.
class DessinGrilleTest : public testing::Test {
  protected:
    DessinGrilleTest() {
        QDir(dir.path()).mkdir(QStringLiteral("Images"));
        QImage image(12, 20, QImage::Format_RGB32);
        image.fill(Qt::white);
        EXPECT_TRUE(image.save(dir.filePath(QStringLiteral("Images/TopBleu.bmp"))));
        QFile damaged(dir.filePath(QStringLiteral("Images/LowBleu.bmp")));
        EXPECT_TRUE(damaged.open(QIODevice::WriteOnly));
        damaged.write("BM rien");
        cells.clear(creneaux.lignes(), 3);
        EcritHeures(cells, creneaux, 0);
        EcritHeures(cells, creneaux, 2);
    }
    void draw(const char *debut, const char *fin, bool present = false) {
        RendezVous rdv;
        rdv.Nom = QStringLiteral("ROUX");
        rdv.Prenom = QStringLiteral("Léa");
        rdv.Date1 = QDate(2026, 3, 9);
        rdv.HeureDebut = QTime::fromString(QString::fromLatin1(debut), QStringLiteral("HH:mm"));
        rdv.HeureFin = QTime::fromString(QString::fromLatin1(fin), QStringLiteral("HH:mm"));
        rdv.Present = present;
        AfficheFourchette(cells, creneaux, rdv, 1, images, now);
    }
    std::string texts() const {
        std::string rows;
        for (int row = 0; row < cells.rows(); ++row) {
            rows += cells.cell(row, 1).text.isEmpty() ? '.' : 'x';
        }
        return rows;
    }

    QTemporaryDir dir;
    StoredPaths paths;
    ImagesRDV images{paths, dir.path()};
    Creneaux creneaux{QTime(8, 0), QTime(12, 0), 15};
    FlexGridModel cells;
    QDateTime now{QDate(2026, 3, 9), QTime(9, 5)};
};

} // namespace

TEST_F(DessinGrilleTest, LabelsEveryRowAndTheClosingOne) {
    EXPECT_EQ(cells.cell(0, 0).text, QStringLiteral("Heure"));
    EXPECT_EQ(cells.cell(1, 2).text, QStringLiteral("08:00"));
    EXPECT_EQ(cells.cell(17, 0).text, QStringLiteral("12:00"));
    EXPECT_EQ(cells.cell(17, 0).back, gris);
    EXPECT_EQ(cells.cell(17, 0).fore, QColor(240, 240, 240));
}

TEST_F(DessinGrilleTest, TextStandsInTheFirstVisibleRowOnly) {
    draw("10:00", "10:45");
    EXPECT_EQ(cells.cell(9, 1).text, QStringLiteral("  ROUX Léa"));
    draw("07:00", "08:30");
    draw("11:30", "19:00");
    EXPECT_EQ(texts(), ".x.......x.....x..");
}

TEST_F(DessinGrilleTest, MissingAndDamagedPicturesAreEmptyCells) {
    draw("10:00", "10:45");
    EXPECT_FALSE(cells.cell(9, 1).picture.isNull());
    EXPECT_TRUE(cells.cell(10, 1).picture.isNull()) << "MidBleu.bmp is missing";
    EXPECT_TRUE(cells.cell(11, 1).picture.isNull()) << "LowBleu.bmp is damaged";
}

TEST_F(DessinGrilleTest, AttendanceColoursTheWholeBlockLatenessTheFirstText) {
    draw("08:30", "09:00", true);
    draw("09:00", "09:30");
    draw("09:15", "09:45");
    EXPECT_EQ(cells.cell(3, 1).back, bleu);
    EXPECT_EQ(cells.cell(4, 1).back, bleu);
    EXPECT_EQ(cells.cell(4, 1).fore, QColor(Qt::white));
    EXPECT_EQ(cells.cell(5, 1).fore, rouge) << "09:00 has passed at 09:05";
    EXPECT_FALSE(cells.cell(6, 1).fore.isValid()) << "09:15 has not";
    now = now.addDays(1);
    draw("10:00", "10:15");
    EXPECT_FALSE(cells.cell(9, 1).fore.isValid()) << "seen on another day";
}

TEST_F(DessinGrilleTest, TheMinuteOfTheStartIsNotLate) {
    now.setTime(QTime(9, 0, 59));
    draw("09:00", "09:30");
    EXPECT_FALSE(cells.cell(5, 1).fore.isValid());
}

TEST_F(DessinGrilleTest, AnAppointmentWithoutLengthOrTimeIsNotDrawn) {
    draw("10:05", "10:05");
    draw("10:30", "10:00");
    draw("", "10:00");
    draw("10:00", "");
    EXPECT_EQ(texts(), "..................");
}

TEST_F(DessinGrilleTest, ErasingKeepsGreyLabelsAndClosingRow) {
    Grise(cells, 5, 8, 1);
    draw("08:30", "09:00", true);
    draw("09:15", "09:30");
    EffaceRendezVous(cells);
    EXPECT_EQ(texts(), "..................");
    EXPECT_TRUE(EstGrise(cells.cell(6, 1)));
    EXPECT_FALSE(cells.cell(3, 1).back.isValid());
    EXPECT_FALSE(cells.cell(3, 1).fore.isValid());
    EXPECT_TRUE(cells.cell(3, 1).picture.isNull());
    EXPECT_EQ(cells.cell(17, 0).text, QStringLiteral("12:00"));
}
