// Figures: coefficients, agreement, sensitivity and stability of a round, on screen, on paper and in files.
#pragma once

#include <memory>
#include <optional>

#include "figures/RoundResults.h"
#include "figures/Sheet.h"
#include "figures/Stability.h"
#include "screens/OutputScreen.h"

namespace Ui {
class FiguresScreen;
}
enum class PictureType;
struct RoundState;

class 図 : public OutputScreen {
  public:
    図();
    ~図() override;

    void Form_Load() override;

  protected:
    void end() override;

  private:
    enum class Figure { Coefficients, Agreement, Sensitivity, Stability };

    void Combo1_Click(); // problem
    void showState(const RoundState& state);
    void Command1_Click(); // calculates the stability
    void Command7_Click(); // prints
    void savePictures(PictureType type);
    void showFigure();
    void showSheets(std::vector<FigureSheet> sheets);
    bool showRun(int done);
    std::vector<FigureSheet> drawn() const;
    std::vector<FigureSheet> drawnAgreement() const;
    Figure figure() const;
    void setRunning(bool running);

    std::unique_ptr<Ui::FiguresScreen> ui_;
    std::optional<RoundResults> results_;
    std::optional<Stability> stability_;
    std::vector<FigureSheet> sheets_;
    bool running_ = false;
    bool stopped_ = false;
};
