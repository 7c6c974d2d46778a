#pragma once

#include "controls/CDialog.h"
#include "presets/BrowserLayout.h"

#include <QString>

#include <array>
#include <memory>

class CEFXPresetTree;
class QAction;
class QCheckBox;
class QFileDialog;
class QTreeWidget;
class QTreeWidgetItem;
struct PresetNode;

// The preset browser: one document of effect entries, preset groups and presets, shown whole and open
// in a tree, with buttons that capture a slot's effect into a new preset and apply the selected
// preset to a slot, and a menu that loads and saves .efx files. Modeless; its close box hides it, and
// the document, file name and selection stay. There is no modified flag and no question about unsaved
// work: the file name at the top of the tree is the only sign of which document is open.
class CEFXBrowser : public CDialog {
public:
    explicit CEFXBrowser(QWidget* parent = nullptr);
    ~CEFXBrowser() override;

    // Captures slot n into a new preset beside or under the selection, or under the slot's entry.
    void SaveSlotState(int n);
    // Applies the selected preset to slot n; with the check box set, loads the preset's effect first.
    void LoadPresetInSlot(int n);
    void OnCreateGroup();
    void OnDeleteSelected();
    void OnSave();
    // Writes the document to path; false if nothing was written.
    bool SaveToPath(const QString& path);
    void OnSaveAs();
    void OnLoadFile();
    // Replaces the document with the file at path, shown under its bare name.
    void LoadFromFile(const QString& path);

    // Rebuilds the whole control from the document: every item open, nothing selected.
    void RefreshTree();
    void FillTree(PresetNode* node, QTreeWidgetItem* parentItem);

    // The selected item and its node; the top item has no node.
    QTreeWidgetItem* SelectedItem() const;
    PresetNode* SelectedNode() const;
    // The node an item stands for; null for the top item.
    static PresetNode* NodeOf(const QTreeWidgetItem* item);

    CEFXPresetTree* Document() const { return m_document.get(); }
    const QString& FileName() const { return m_fileName; }
    const QString& Path() const { return m_path; }
    QTreeWidget* Tree() const { return m_tree; }
    QAction* MenuAction(int id) const;

protected:
    void OnInitDialog() override;

private:
    friend class PresetLabelDelegate;
    void BuildMenuBar();
    // A file dialog as the browser shows it: its filters, suffix and first name, in the last folder.
    void PrepareFileDialog(QFileDialog& dialog) const;
    void EnableSave();
    // Refuses an edit of the top item; otherwise the new label goes into the selected item's node.
    bool CanEditSelectedLabel() const;
    void EndLabelEdit(const QString& text);

    QTreeWidget* m_tree = nullptr;
    QCheckBox* m_loadEffect = nullptr;
    std::unique_ptr<CEFXPresetTree> m_document;
    QString m_fileName;
    QString m_path;
    std::array<QAction*, std::size(browser_layout::kMenu)> m_actions{};
};
