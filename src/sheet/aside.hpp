// A calculation beside the program's own, for who looks into a sheet: while it lives nothing that is calculated is
// said, shown or beeped, and at its end the variables, matrices, data set, results, random numbers, hooks and
// the one who looks on are as they were. Random numbers are drawn as in the last pass. Changes and puts back all that a
// pass changes.
#pragma once

#include "base/failure.hpp"
#include "platform/boxes.hpp"
#include "platform/hooks.hpp"
#include "platform/message.hpp"
#include "platform/patience.hpp"
#include "platform/platform.hpp"
#include "sheet/matrix_definition.hpp"
#include "sheet/observer.hpp"
#include "state/context.hpp"
#include "state/data_set.hpp"
#include "state/matrices.hpp"
#include "state/sheet.hpp"

class CalculAPart {
public:
    CalculAPart();
    ~CalculAPart();
    CalculAPart(const CalculAPart&) = delete;
    CalculAPart& operator=(const CalculAPart&) = delete;

private:
    // First what is copied: where the memory ends, nothing has been moved yet.
    Moteur moteur_;
    LigneMessage message_;
    BoitesDePasse boites_;
    Feuille feuille_;
    Matrices matrices_;
    DefinitionMatrice definition_;
    Statistiques statistiques_;
    Patience patience_;
    PortBoites port_boites_;
    PortMessage port_message_;
    Signalement signalement_;
    Crochets crochets_;
    Observation* observation_;
};

// Boxes that a failure would have shown since the last call.
int boites_tues();
