#pragma once
// The capacity curve of a pushover curve, for the capacity spectrum window: the curve another
// program exported, the building weight W and the first mode's α1 and PF1·φroof,1 make the
// nine-column table, which Form9 then holds as if read from a file, and which can be saved.
#include <string>

#include "compute/capacity/capacity_reader.h"
#include "compute/import/curve_import.h"
#include "windows/program.h"

namespace tv::windows {

class frmCurveCapacity : public Window {
public:
    explicit frmCurveCapacity(forms::App& app);

    forms::Label& lblFile = label("lblFile", "Pushover curve file :");
    forms::TextBox& txtFile = text_box("txtFile", "");
    forms::CommandButton& cmdBrowse = button("cmdBrowse", "Browse");
    /// The unit system the curve is converted to: the capacity window's length unit.
    forms::Label& lblSystem = label("lblSystem", "");
    forms::Label& lblW = label("lblW", "W (building weight) :");
    forms::TextBox& txtW = text_box("txtW", "");
    forms::Label& lblWUnit = label("lblWUnit", "");
    forms::Label& lblAlpha1 = label("lblAlpha1", "α1 (modal mass coefficient of mode 1) :");
    forms::TextBox& txtAlpha1 = text_box("txtAlpha1", "");
    forms::Label& lblPfPhi = label("lblPfPhi", "PF1·φroof,1 (participation factor × roof amplitude of mode 1) :");
    forms::TextBox& txtPfPhi = text_box("txtPfPhi", "");
    /// Or the three from the storeys: one line each, from the first storey to the roof, its
    /// weight and its first-mode amplitude, as pasted from the modal tables.
    forms::Label& lblStoreys =
        label("lblStoreys", "Or paste one line per storey, first to roof: weight and mode-1 amplitude φ :");
    forms::TextBox& txtStoreys = text_box("txtStoreys", "");
    forms::CommandButton& cmdModal = button("cmdModal", "Compute W, α1 and PF1·φ");
    /// What was read, converted and built.
    forms::Label& lblConversion = label("lblConversion", "");
    forms::CommandButton& cmdBuild = button("cmdBuild", "Build Capacity Table");
    forms::CommandButton& cmdSave = button("cmdSave", "Save Table...");
    forms::CommandButton& cmdClose = button("cmdClose", "Close");

    /// The table last built, for Save.
    compute::CapacityTable table;

    /// The unit labels follow the capacity window's unit.
    void Form_Activate() override;
    void cmdBrowse_Click();
    /// Imports the curve, builds the table and hands it to Form9; a file that cannot be read,
    /// a question cancelled or numbers the table refuses leave Form9 as it was.
    void cmdBuild_Click();
    void cmdSave_Click();
    /// W, α1 and PF1·φroof,1 from the storeys pasted into txtStoreys.
    void cmdModal_Click();

private:
    compute::UnitSystem system() const;
    void show_error(const std::string& text);
};

}  // namespace tv::windows
