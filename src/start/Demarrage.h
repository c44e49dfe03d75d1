#pragma once

#include "config/PraticienTables.h"

#include <QList>

struct VariablesGlobales;

/// The first steps of the start-up, which read the data before anything is drawn. Each tells the user what is
/// wrong and gives false when the start-up cannot go on.

/// Reads the path database `fichier` (a real file). False: the program ends.
bool LitEmplacements(VariablesGlobales &v, const QString &fichier);

/// Brings the appointment database up to date. False: the main window stays empty.
bool MetBaseANiveau(VariablesGlobales &v);

/// Reads what the suite hands over; without it the book opens on the first practitioner.
void LitTransmissionSuite(VariablesGlobales &v);

/// Reads the practitioners, whether the current one uses the word processor and how many they are; chooses
/// the first when the suite named none. Empty when there is nobody to open the book on.
QList<Praticien> LitPraticiens(VariablesGlobales &v);
