#include "practice/JourSaisi.h"

#include "platform/ui/ChampDate.h"
#include "platform/ui/Messages.h"
#include "practice/Environnement.h"

std::optional<QDate> JourSaisi(const Environnement &env, ChampDate &champ) {
    const std::optional<QDate> jour = champ.date();
    if (!jour) {
        env.messages->show(ChampDate::complaint(), QStringLiteral("Erreur !"));
        champ.setFocus();
        champ.selectAll();
    }
    return jour;
}
