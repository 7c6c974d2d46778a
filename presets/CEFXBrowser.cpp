#include "presets/CEFXBrowser.h"

#include "controls/AfxMessageBox.h"
#include "controls/ControlId.h"
#include "engine/EFX_EffectSlot.h"
#include "engine/EFX_Factory.h"
#include "presets/CEFXPresetTree.h"
#include "presets/PresetCapture.h"
#include "presets/PresetLabels.h"
#include "presets/PresetLookups.h"
#include "presets/SafeSave.h"
#include "values/UI_EFX_Bridge.h"

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <cstdio>

using browser_layout::Command;

namespace {

const QString kGroupMismatch = QStringLiteral(
    "The effect corresponding to the preset group you selected doesn't match the effect loaded in the slot you are "
    "trying to save\nSelect another preset group or effect in the tree view");
const QString kNoPresetSelected = QStringLiteral("Invalid selection\nPlease select a preset to load");
const QString kSlotNotQueried = QStringLiteral("Error querying slot\nCancelling loading of the preset");
const QString kWrongEffect = QStringLiteral(
    "Error loading preset:\nThe preset you are trying to load is not designed for the type of effect currently "
    "loaded in the slot\nPlease select another preset or target slot");
const QString kEffectNotLoaded = QStringLiteral("Error loading effect\nCancelling loading of the preset");
const QString kNoGroupHere = QStringLiteral(
    "Invalid selection:\n\tyou cannot create a Preset Group under this node.\nClick on an Effect or another Preset "
    "Group");
constexpr char16_t kNewGroupName[] = u"my_Preset_Group (edit me)";
// The item data that marks the library's items.
constexpr int kLibraryRole = Qt::UserRole + 1;

// A node's label as the tree shows it: the low byte of each unit, read as Latin-1.
QString ItemText(const PresetNode& node)
{
    return QString::fromLatin1(NarrowLabel(node.name));
}

std::FILE* OpenFile(const QString& path, const char* mode)
{
    return path.isEmpty() ? nullptr : std::fopen(QFile::encodeName(path).constData(), mode);
}

// The slot's EffectType, or false when there is no such slot or it cannot say.
bool SlotEffectType(EFX_Factory* factory, int n, int& type)
{
    EFX_EffectSlot* slot = factory && n >= 0 ? factory->GetEffectSlot(static_cast<std::uint32_t>(n)) : nullptr;
    return slot && slot->GetEffect(&type);
}

} // namespace

// Label editing on the selected item: the top item is refused, an empty text is refused, and an
// accepted text goes into the selected item's node as well as onto the item.
class PresetLabelDelegate : public QStyledItemDelegate {
public:
    explicit PresetLabelDelegate(CEFXBrowser* browser)
        : QStyledItemDelegate(browser),
          m_browser(browser)
    {
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        if (!m_browser->CanEditSelectedLabel())
            return nullptr;
        return QStyledItemDelegate::createEditor(parent, option, index);
    }

    void setModelData(QWidget* editor, QAbstractItemModel*, const QModelIndex&) const override
    {
        if (auto* line = qobject_cast<QLineEdit*>(editor))
            m_browser->EndLabelEdit(line->text());
    }

private:
    CEFXBrowser* m_browser;
};

CEFXBrowser::CEFXBrowser(QWidget* parent)
    : CDialog(parent),
      m_document(std::make_unique<CEFXPresetTree>()),
      m_fileName(QString::fromUtf8(browser_layout::kUnsavedFileName))
{
    m_document->BuildDefaultTree();
    m_libraryIndex = BuildStandardLibrary(m_library);
    setWindowTitle(QStringLiteral("EFX Browser"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* client = new QWidget(this);
    client->setFixedSize(browser_layout::kClientSize);
    layout->addWidget(client);
    BuildControls(client, browser_layout::kControls);
    BuildMenuBar();

    m_tree = FindControlAs<QTreeWidget>(client, res::IDC_PRESET_TREE);
    m_tree->setAccessibleName(QStringLiteral("Presets"));
    m_tree->setSelectionMode(QAbstractItemView::SingleSelection);
    m_tree->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::SelectedClicked);
    m_tree->setItemDelegate(new PresetLabelDelegate(this));
    m_loadEffect = FindControlAs<QCheckBox>(client, res::IDC_LOAD_EFFECT_IF_NEEDED);

    for (int n = 0; n < 4; ++n) {
        connect(FindControlAs<QPushButton>(client, res::IDC_SAVE_SLOT_0 + n), &QPushButton::clicked, this,
                [this, n] { SaveSlotState(n); });
        connect(FindControlAs<QPushButton>(client, res::IDC_LOAD_IN_SLOT_0 + n), &QPushButton::clicked, this,
                [this, n] { LoadPresetInSlot(n); });
    }
    connect(FindControlAs<QPushButton>(client, res::IDC_CREATE_GROUP), &QPushButton::clicked, this,
            &CEFXBrowser::OnCreateGroup);
    connect(FindControlAs<QPushButton>(client, res::IDC_DELETE_SELECTED), &QPushButton::clicked, this,
            &CEFXBrowser::OnDeleteSelected);
    connect(FindControlAs<QPushButton>(client, res::IDC_COPY_TO_DOCUMENT), &QPushButton::clicked, this,
            &CEFXBrowser::OnCopyToDocument);
    auto rememberOpen = [this](QTreeWidgetItem* item, bool open) {
        if (!IsLibraryItem(item))
            return;
        if (open)
            m_libraryOpen.insert(NodeOf(item));
        else
            m_libraryOpen.remove(NodeOf(item));
    };
    connect(m_tree, &QTreeWidget::itemExpanded, this, [rememberOpen](QTreeWidgetItem* item) { rememberOpen(item, true); });
    connect(m_tree, &QTreeWidget::itemCollapsed, this,
            [rememberOpen](QTreeWidgetItem* item) { rememberOpen(item, false); });
    MenuAction(res::ID_BROWSER_SAVE)->setEnabled(false);
}

CEFXBrowser::~CEFXBrowser()
{
    // The items only borrow their nodes: they go before the document does.
    m_tree->clear();
}

void CEFXBrowser::BuildMenuBar()
{
    auto* bar = new QMenuBar(this);
    layout()->setMenuBar(bar);
    QMenu* menu = bar->addMenu(QString::fromUtf8(browser_layout::kMenuTitle));
    for (std::size_t i = 0; i < std::size(browser_layout::kMenu); ++i) {
        const browser_layout::MenuEntry& entry = browser_layout::kMenu[i];
        QAction* action = menu->addAction(QString::fromUtf8(entry.caption));
        action->setData(entry.id);
        connect(action, &QAction::triggered, this, [this, command = entry.command] {
            switch (command) {
            case Command::LoadFile: OnLoadFile(); break;
            case Command::Save: OnSave(); break;
            case Command::SaveAs: OnSaveAs(); break;
            }
        });
        m_actions[i] = action;
    }
}

QAction* CEFXBrowser::MenuAction(int id) const
{
    for (QAction* action : m_actions)
        if (action->data().toInt() == id)
            return action;
    return nullptr;
}

void CEFXBrowser::OnInitDialog()
{
    RefreshTree();
}

QTreeWidgetItem* CEFXBrowser::SelectedItem() const
{
    const QList<QTreeWidgetItem*> selected = m_tree->selectedItems();
    return selected.isEmpty() ? nullptr : selected.first();
}

PresetNode* CEFXBrowser::NodeOf(const QTreeWidgetItem* item)
{
    return item ? reinterpret_cast<PresetNode*>(item->data(0, Qt::UserRole).value<quintptr>()) : nullptr;
}

PresetNode* CEFXBrowser::SelectedNode() const
{
    return NodeOf(SelectedItem());
}

bool CEFXBrowser::IsLibraryItem(const QTreeWidgetItem* item)
{
    return item && item->data(0, kLibraryRole).toBool();
}

const StandardReverb* CEFXBrowser::LibraryReverbOf(const QTreeWidgetItem* item) const
{
    if (!IsLibraryItem(item))
        return nullptr;
    const auto found = m_libraryIndex.find(NodeOf(item));
    return found == m_libraryIndex.end() ? nullptr : found->second;
}

void CEFXBrowser::RefreshTree()
{
    m_tree->clear();
    // After a failed load there is no document: the control holds the library alone.
    if (!m_document) {
        FillLibrary();
        return;
    }
    auto* top = new QTreeWidgetItem(QStringList{m_fileName});
    top->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    // The items are made before the top item joins the control, so that the view lays them out once.
    FillTree(m_document->Root()->firstChild, top);
    m_tree->addTopLevelItem(top);
    m_tree->expandAll();
    FillLibrary();
    m_tree->setCurrentItem(nullptr);
    m_tree->clearSelection();
}

void CEFXBrowser::FillTree(PresetNode* node, QTreeWidgetItem* parentItem)
{
    for (; node; node = node->nextSibling) {
        // Parameter descriptions are document data that the user never sees.
        if (node->id != preset_tag::kEffect && node->id != preset_tag::kPresetGroup && node->id != preset_tag::kPreset)
            continue;
        auto* item = new QTreeWidgetItem(parentItem, QStringList{ItemText(*node)});
        item->setData(0, Qt::UserRole, QVariant::fromValue(reinterpret_cast<quintptr>(node)));
        item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
        FillTree(node->firstChild, item);
    }
}

void CEFXBrowser::FillLibrary()
{
    auto* top = new QTreeWidgetItem(QStringList{QString::fromUtf8(kStandardLibraryTitle)});
    top->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    FillTree(m_library.Root()->firstChild, top);
    // Read-only: no item of it can be renamed, and each says that it belongs to the library.
    QList<QTreeWidgetItem*> items{top};
    for (int i = 0; i < items.size(); ++i) {
        QTreeWidgetItem* item = items[i];
        item->setData(0, kLibraryRole, true);
        item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        for (int c = 0; c < item->childCount(); ++c)
            items.append(item->child(c));
    }
    // Opening items fires the signal that records them: the set is copied before.
    const QSet<const PresetNode*> open = m_libraryOpen;
    m_tree->addTopLevelItem(top);
    for (QTreeWidgetItem* item : items)
        item->setExpanded(open.contains(NodeOf(item)));
}

bool CEFXBrowser::CanEditSelectedLabel() const
{
    const QTreeWidgetItem* selected = SelectedItem();
    return selected && selected != m_tree->topLevelItem(0) && !IsLibraryItem(selected);
}

void CEFXBrowser::EndLabelEdit(const QString& text)
{
    QTreeWidgetItem* item = SelectedItem();
    PresetNode* node = NodeOf(item);
    if (!node || text.isEmpty())
        return;
    // The control holds 8-bit text: what Latin-1 cannot hold is lost here, as it would be in the control.
    const QByteArray bytes = text.toLatin1();
    item->setText(0, QString::fromLatin1(bytes));
    WidenLabel(bytes.constData(), node->name);
}

void CEFXBrowser::SaveSlotState(int n)
{
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    EFX_Factory* factory = bridge ? bridge->GetFactory() : nullptr;
    int type = 0;
    if (!m_document || !SlotEffectType(factory, n, type))
        return;
    EffectGuid guid;
    EffectTypeToGuid(type, guid);

    auto slotEntry = [&]() -> PresetNode* {
        EffectNode* entry = m_document->FindEffect(guid);
        return entry ? entry : m_document->EnsureEffectNode(guid);
    };
    // Nothing is captured into the library: a selection there counts as none.
    PresetNode* selected = IsLibraryItem(SelectedItem()) ? nullptr : SelectedNode();
    PresetNode* parent = nullptr;
    if (!selected || selected->id == preset_tag::kEffect) {
        // A selected entry of another effect is passed over without a word.
        parent = slotEntry();
    } else if (selected->id == preset_tag::kPresetGroup) {
        if (GetEffectGuid(selected) != guid) {
            AfxMessageBox(kGroupMismatch);
            bridge->ClearSlotLog(n);
            raise();
            return;
        }
        parent = selected;
    } else if (selected->id == preset_tag::kPreset) {
        parent = GetEffectGuid(selected) == guid ? FindInsertParent(selected) : slotEntry();
    }

    // An empty slot has no row and no record: nothing is added, and the tree is refreshed all the same.
    const std::vector<std::uint8_t> record = CaptureRecord(*factory, static_cast<std::uint32_t>(n), type);
    if (const EffectTableRow* row = FindEffectRowByType(type); row && parent && !record.empty())
        m_document->AddPreset(parent, row->presetName, record.data(), static_cast<std::uint32_t>(record.size()));
    bridge->ClearSlotLog(n);
    RefreshTree();
    raise();
}

void CEFXBrowser::LoadPresetInSlot(int n)
{
    const bool loadEffect = m_loadEffect->isChecked();
    PresetNode* node = SelectedNode();
    if (!node || node->id == preset_tag::kPresetGroup || node->id == preset_tag::kEffect) {
        AfxMessageBox(kNoPresetSelected);
        return;
    }
    const EffectGuid presetGuid = GetEffectGuid(node);
    // A library reverb also fits a standard reverb slot, with the values that effect has.
    const StandardReverb* reverb = LibraryReverbOf(SelectedItem());
    UI_EFX_Bridge* bridge = UI_EFX_Bridge::GetInstance();
    EFX_Factory* factory = bridge ? bridge->GetFactory() : nullptr;
    int type = 0;
    if (!SlotEffectType(factory, n, type)) {
        AfxMessageBox(kSlotNotQueried);
        if (bridge)
            bridge->ClearSlotLog(n);
        return;
    }
    EffectGuid slotGuid;
    EffectTypeToGuid(type, slotGuid);
    int presetType = type;
    if (slotGuid != presetGuid && !(reverb && type == kEffectReverb)) {
        if (!loadEffect) {
            AfxMessageBox(kWrongEffect);
            return;
        }
        presetType = 0;
        GuidToEffectType(presetGuid, presetType);
        if (!bridge->LoadSlotEffect(n, presetType)) {
            AfxMessageBox(kEffectNotLoaded);
            bridge->ClearSlotLog(n);
            bridge->RefreshSlotPanel(n);
            return;
        }
        bridge->RefreshSlotPanel(n);
    }

    if (reverb) {
        ApplyReverbValues(*factory, static_cast<std::uint32_t>(n), presetType, StandardReverbValues(*reverb));
    } else {
        auto* preset = static_cast<PresetDataNode*>(node);
        ApplyPreset(*factory, static_cast<std::uint32_t>(n), presetGuid, preset->data.get(), preset->dataSize);
    }
    // The setters' lines have gathered in the slot's log: the whole load is one entry of the console.
    bridge->FlushSlotLog(n);
    bridge->RefreshEffectValues(n, presetType);
}

void CEFXBrowser::OnCreateGroup()
{
    PresetNode* node = IsLibraryItem(SelectedItem()) ? nullptr : SelectedNode();
    if (!m_document || !node || (node->id != preset_tag::kEffect && node->id != preset_tag::kPresetGroup)) {
        AfxMessageBox(kNoGroupHere);
        return;
    }
    m_document->AddGroup(node, kNewGroupName);
    RefreshTree();
}

void CEFXBrowser::OnDeleteSelected()
{
    PresetNode* node = SelectedNode();
    if (!m_document || !node || IsLibraryItem(SelectedItem()))
        return;
    m_document->DeleteNode(node);
    RefreshTree();
}

void CEFXBrowser::CopyLibraryNode(const PresetNode* node, PresetNode* parent)
{
    if (node->id == preset_tag::kPreset) {
        const auto* preset = static_cast<const PresetDataNode*>(node);
        m_document->AddPreset(parent, node->name, preset->data.get(), preset->dataSize);
        return;
    }
    if (node->id == preset_tag::kPresetGroup)
        parent = m_document->AddGroup(parent, node->name);
    for (const PresetNode* child = node->firstChild; child && parent; child = child->nextSibling)
        CopyLibraryNode(child, parent);
}

void CEFXBrowser::OnCopyToDocument()
{
    QTreeWidgetItem* item = SelectedItem();
    if (!m_document || !IsLibraryItem(item))
        return;
    const PresetNode* node = NodeOf(item);
    if (!node) // the library's top item: all of it
        node = m_library.Root()->firstChild;
    const EffectGuid guid = GetEffectGuid(node);
    EffectNode* entry = m_document->FindEffect(guid);
    if (!entry)
        entry = m_document->EnsureEffectNode(guid);
    if (entry)
        CopyLibraryNode(node, entry);
    RefreshTree();
}

void CEFXBrowser::EnableSave()
{
    MenuAction(res::ID_BROWSER_SAVE)->setEnabled(true);
}

void CEFXBrowser::OnSave()
{
    SaveToPath(m_path);
}

bool CEFXBrowser::SaveToPath(const QString& path)
{
    EnableSave();
    if (!m_document) {
        AfxMessageBox(QStringLiteral("Nothing to save"));
        return false;
    }
    // Written beside the old file and put in its place only when whole: a failure keeps the old file.
    const SaveResult saved = SaveDocumentSafely(*m_document, QFile::encodeName(path).toStdString());
    switch (saved.status) {
    case SaveStatus::Saved:
        return true;
    case SaveStatus::CannotOpen:
        AfxMessageBox(QStringLiteral("Error opening file for saving"));
        return false;
    case SaveStatus::CannotWrite:
        AfxMessageBox(QStringLiteral("Error writing file: %1\nThe file on disk was left as it was")
                          .arg(QString::fromLocal8Bit(saved.reason.c_str())));
        return false;
    }
    return false;
}

void CEFXBrowser::PrepareFileDialog(QFileDialog& dialog) const
{
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::AnyFile);
    QStringList filters;
    for (const char* filter : browser_layout::kFileFilters)
        filters << QString::fromUtf8(filter);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(QString::fromUtf8(browser_layout::kDefaultSuffix));
    if (!m_path.isEmpty())
        dialog.setDirectory(QFileInfo(m_path).absolutePath());
    dialog.selectFile(QString::fromUtf8(browser_layout::kInitialName));
}

void CEFXBrowser::OnSaveAs()
{
    QFileDialog dialog(this, QStringLiteral("Save As"));
    PrepareFileDialog(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    m_path = dialog.selectedFiles().first();
    m_fileName = QFileInfo(m_path).fileName();
    // The document is read back from what was written; a save that failed keeps the document as it is.
    if (SaveToPath(m_path))
        LoadFromFile(m_path);
}

void CEFXBrowser::OnLoadFile()
{
    QFileDialog dialog(this, QStringLiteral("Open"));
    PrepareFileDialog(dialog);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        LoadFromFile(dialog.selectedFiles().first());
        return;
    }
    // A cancel leaves no name and no path: the next refresh shows an empty top item and Save fails.
    m_path.clear();
    m_fileName.clear();
}

void CEFXBrowser::LoadFromFile(const QString& path)
{
    m_tree->clear();
    m_document.reset();
    m_path = path;
    m_fileName = QFileInfo(path).fileName();
    std::FILE* stream = OpenFile(path, "rb");
    if (!stream) {
        AfxMessageBox(QStringLiteral("Error opening file"));
        FillLibrary();
        return;
    }
    m_document = std::make_unique<CEFXPresetTree>();
    m_document->ReadFile(stream);
    std::fclose(stream);
    RefreshTree();
    EnableSave();
}
