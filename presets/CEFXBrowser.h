#pragma once

#include "controls/CDialog.h"
#include "presets/BrowserLayout.h"
#include "presets/StandardReverbLibrary.h"

#include <QSet>
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
//
// Below the document stands the standard reverb library, read-only: its presets load like the
// document's (into an EAX reverb or a standard reverb slot) and "Copy to my presets" copies a preset
// or a group of it into the document. Nothing captures into it, renames or deletes in it.
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
    // Copies the selected preset or group of the library (all of it for its entry or top item) under
    // the document's EAX reverb entry.
    void OnCopyToDocument();
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
    // Whether an item belongs to the standard reverb library, and the reverb of a library preset.
    static bool IsLibraryItem(const QTreeWidgetItem* item);
    const StandardReverb* LibraryReverbOf(const QTreeWidgetItem* item) const;

    CEFXPresetTree* Document() const { return m_document.get(); }
    const CEFXPresetTree& Library() const { return m_library; }
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
    // The library under its own top item, opened where the user opened it before the last refresh.
    void FillLibrary();
    void CopyLibraryNode(const PresetNode* node, PresetNode* parent);

    QTreeWidget* m_tree = nullptr;
    QCheckBox* m_loadEffect = nullptr;
    std::unique_ptr<CEFXPresetTree> m_document;
    QString m_fileName;
    QString m_path;
    std::array<QAction*, std::size(browser_layout::kMenu)> m_actions{};
    CEFXPresetTree m_library;
    StandardReverbIndex m_libraryIndex;
    // The library's open items (its top item as the null node), kept across refreshes.
    QSet<const PresetNode*> m_libraryOpen;
};
