#include "dialogs/common/ReadoutLabels.h"

#include "readouts/Mbi5153Readouts.h"

namespace {

struct CurrentLabels {
    int sliderId;
    int factorLabelId;
    int currentLabelId;
};

constexpr CurrentLabels kCurrentLabels[] = {
    {kRedGainSliderId, 8261, 8267},
    {kGreenGainSliderId, 8262, 8268},
    {kBlueGainSliderId, 8263, 8269},
};

// Resistance edits (red, green, blue), the group's captions, and the factor and current labels.
constexpr int kCurrentGroupIds[] = {8050, 8051, 8049, 1186, 8259, 8260, 8261, 8262,
                                    8263, 8264, 8265, 8266, 8267, 8268, 8269};

} // namespace

void UpdateGainPercentLabels(const CDialog& dialog, int redGain, int greenGain, int blueGain) {
    dialog.SetItemText(kRedGainPercentId, FormatGainPercent(redGain));
    dialog.SetItemText(kGreenGainPercentId, FormatGainPercent(greenGain));
    dialog.SetItemText(kBlueGainPercentId, FormatGainPercent(blueGain));
}

void UpdateCurrentLabels(const CDialog& dialog, int sliderId, float gain, float resistanceOhms) {
    for (const CurrentLabels& labels : kCurrentLabels) {
        if (labels.sliderId != sliderId)
            continue;
        const readouts::CurrentReadout readout = readouts::ComputeCurrentReadout(gain, resistanceOhms);
        dialog.SetItemText(labels.factorLabelId, readout.factor);
        dialog.SetItemText(labels.currentLabelId, readout.current);
    }
}

void ShowCurrentGroup(const CDialog& dialog, int showCommand) {
    for (const int id : kCurrentGroupIds)
        dialog.ShowItem(id, showCommand);
}
