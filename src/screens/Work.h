// One of the works that the calculation and report screens, and hollin-batch, do.
#pragma once

#include <QString>

#include "screens/Progress.h"

class Output;
struct RoundSelection;

// What is chosen for one of the works only.
struct WorkOptions {
    bool showValues = true; // 個人結果: the evaluator's weights in the tree, or zeros
};

// Nothing, or it makes results, or it is made of them: before that, and after they are made, whoever asks is
// told whose there are.
enum class RoundUse { None, Makes, Takes };

struct Work {
    QString screen;     // also title of its message boxes, and the name of its documents
    QString caption;    // of the button that does it
    QString option;     // of hollin-batch that asks for it
    QString help;       // what the option does; empty where several works share it
    bool hasEvaluators; // whether evaluators are chosen, or all of the round are meant
    RoundUse use;       // what it has to do with the results of the round
    bool printsReport;  // whether there is an output target to choose
    // False when it was refused; the user has been told why.
    bool (*run)(Output& output, const RoundSelection& chosen, const WorkOptions& options,
                const Progress& progress);
    QString whenNothing{};      // what the screen says of "%1" evaluators when there was no document to make
    QString menuControl{};      // the button of メニュー that opens the screen
    bool offersFigures = false; // whether the screen leads to the figures
};
