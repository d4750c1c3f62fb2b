#pragma once

#include <zorby/Export.h>
#include <zorby/controls/ControlSet.h>
#include <zorby/controls/TreeWithCheckBoxes.h>
#include <zorby/text/StringAndUINTArraySorted.h>

#include <string>
#include <string_view>
#include <vector>

namespace zorby {

// The tree in which the user says which records a change of control fields is for: those of certain
// kinds of material, or those made with certain workforms. It has a branch for each, of which only
// one is in use: "Material types" with the materials, and "Workforms" with the materials and below
// them their workforms, the user's own as "UD: " and the name.
class ZORBY_EXPORT CTreeForControlFields : public CTreeWithCheckBoxes, public CommandTarget {
public:
    static constexpr int kTreeId = 10002;
    static constexpr int kClearId = 10006;

    // Adds the tree and a button "&Clear Selected" to a window, which must outlive this object, and
    // checks what is in a text of GetCurrentSettings.
    void InitializeYourself(const ControlBox& place, WindowPort& window, std::string_view settings);

    // Insert the children of an item that has none yet; the user's workforms are those that the
    // host has while the tree is initialised.
    void PopulateSecondLevelMaterialType(TreeItem item);
    void PopulateThirdLevelTemplates(TreeItem item);
    // Closes the branches that don't have the item.
    void CollapseOtherNode(TreeItem item) const;
    // Shows or hides the controls.
    void DrawControls(int show) const;

    // Appends the paths of what is checked among an item and its later siblings, and below them:
    // "\8\" for a material by its number (MaterialType), and "\templates:\8\101\" for a workform by
    // its material and its ID.
    void GetSelNodePath(TreeItem item, std::vector<std::string>& paths) const;
    // Gives the numbers of what is checked, such as "8\12\" for materials and "templates:\4\101\"
    // for workforms, or an empty text.
    void GetCurrentSettings(std::string& text) const;

    int OnCmdMsg(int id, int code, TreeItem item) override;

protected:
    void Populate(TreeItem item) override;

private:
    void CheckSettings(std::string_view settings);

    ControlSet controls_;
    // The user's workforms and the IDs of their bases.
    CStringAndUINTArraySorted users_;
    std::vector<unsigned> bases_;
    TreeItem materials_ = kTreeRoot;
    TreeItem workforms_ = kTreeRoot;
};

}  // namespace zorby
