#include <quillory/desktop/CellTable.h>
#include <quillory/desktop/CopiesEditor.h>
#include <quillory/desktop/CopiesModel.h>
#include <quillory/desktop/OpenRecord.h>
#include <quillory/desktop/Texts.h>
#include <quillory/faults/Errors.h>
#include <quillory/holdings/NextBarCode.h>
#include <quillory/jobs/Settings.h>
#include <quillory/text/QmText.h>
#include <zorby/holdings/InfoAboutHoldingsTypeList.h>

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace quillory {
namespace {

constexpr int kLeastChars = 8;  // that a choice of systems shows
constexpr int kMostChars = 24;  // of a column at first

}  // namespace

CopiesEditor::CopiesEditor(OpenRecord& record, QWidget* parent)
    : QWidget(parent),
      record_(record),
      model_(new CopiesModel(record, this)),
      table_(new CellTable(new CellBoxes, this)),
      systems_(new QComboBox(this)),
      none_(new QLabel(this)),
      new_(Button(tr("Ne&w Copy"), tr("A copy with the next bar code (Ctrl+Enter)"),
                  &CopiesEditor::New)),
      like_(Button(tr("&Like This"), tr("A further copy like the one in hand"),
                   &CopiesEditor::NewLikeThis)),
      remove_(Button(tr("Re&move"), tr("Remove the copy in hand (Ctrl+Del); Undo brings it back"),
                     &CopiesEditor::Remove)),
      barCode_(Button(tr("Next &Bar Code"), tr("Give the copy in hand the next bar code"),
                      &CopiesEditor::TakeBarCode)) {
    MakeTable();
    MakeSystems();
    none_->setWordWrap(true);
    none_->setMargin(8);
    none_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    auto* buttons = new QHBoxLayout;
    for (QPushButton* button : {new_, like_, remove_, barCode_}) buttons->addWidget(button);
    buttons->addStretch(1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->addWidget(systems_);
    layout->addLayout(buttons);
    layout->addWidget(none_);
    layout->addWidget(table_, 1);
    connect(&record, &OpenRecord::Replaced, this, [this] {
        table_->setCurrentIndex(model_->index(0, 0));
        ShowState();
    });
    connect(&record, &OpenRecord::Changed, this, &CopiesEditor::ShowState);
    connect(model_, &CopiesModel::Refused, this, &CopiesEditor::Said);
    ShowState();
}

QPushButton* CopiesEditor::Button(const QString& text, const QString& tip,
                                  void (CopiesEditor::*work)()) {
    auto* button = new QPushButton(text, this);
    button->setToolTip(tip);
    connect(button, &QPushButton::clicked, this, work);
    return button;
}

void CopiesEditor::MakeTable() {
    table_->setModel(model_);
    table_->setAccessibleName(tr("Copies"));
    table_->setAlternatingRowColors(true);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setWordWrap(false);
    table_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::AnyKeyPressed |
                            QAbstractItemView::EditKeyPressed);
    table_->horizontalHeader()->setHighlightSections(false);
    FitColumns();
    connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        ShowState();
        Q_EMIT PlaceChanged();
    });
}

void CopiesEditor::FitColumns() {
    const int most = kMostChars * fontMetrics().averageCharWidth();
    for (int column = 0; column < model_->columnCount(); ++column) {
        const int wanted = table_->horizontalHeader()->sectionSizeHint(column);
        table_->setColumnWidth(column, qBound(most / 3, wanted, most));
    }
}

void CopiesEditor::MakeSystems() {
    systems_->setAccessibleName(tr("Holdings system"));
    systems_->setToolTip(tr("The holdings system in whose form copies stand in records"));
    systems_->addItem(tr("Fields of your own"));
    for (const auto* type = zorby::CInfoAboutHoldingsTypeList::GetFirst(); type != nullptr;
         type = zorby::CInfoAboutHoldingsTypeList::GetNext()) {
        if (type->GetSize() > 0) systems_->addItem(ToQt(QmToUtf8(type->GetName())));
    }
    systems_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    systems_->setMinimumContentsLength(kLeastChars);
    systems_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    systems_->installEventFilter(this);
    connect(systems_, &QComboBox::activated, this, [this](int row) {
        if (row > 0) ChooseSystem(systems_->itemText(row));
        ShowState();
    });
}

// A wheel that turns over the choice changes no setting.
bool CopiesEditor::eventFilter(QObject* watched, QEvent* event) {
    return event->type() == QEvent::Wheel || QWidget::eventFilter(watched, event);
}

// It is a setting, in force from then on.
void CopiesEditor::ChooseSystem(const QString& name) {
    Finish();
    try {
        ChangeHoldingsSetting("EasyOrCustom", "Easy");
        ChangeHoldingsSetting("HoldingsType", name.toStdString());
    } catch (const FaultError& error) {
        Q_EMIT Said(ToQt(error.what()));
        return;
    }
    model_->Renew();
    FitColumns();
    table_->setCurrentIndex(model_->index(0, 0));
    Q_EMIT SystemChosen();
}

int CopiesEditor::Count() const {
    return model_->rowCount();
}

const CopyElement* CopiesEditor::CurrentElement() const {
    const QModelIndex now = table_->currentIndex();
    return now.isValid() ? model_->ElementAt(now.column()) : nullptr;
}

void CopiesEditor::Finish() {
    table_->Finish();
}

void CopiesEditor::TellTyped() {
    const auto* line = qobject_cast<QLineEdit*>(table_->Box());
    if (line != nullptr) model_->setData(table_->currentIndex(), line->text(), Qt::EditRole);
}

QString CopiesEditor::NextBarCode() {
    if (!HasNextBarCode() || !model_->Copies().BarCode()) return {};
    try {
        return ToQt(TakeNextBarCode());
    } catch (const FaultError& error) {
        Q_EMIT Said(ToQt(error.what()));
        return {};
    }
}

void CopiesEditor::New() {
    Add(false);
}

void CopiesEditor::NewLikeThis() {
    Add(true);
}

void CopiesEditor::Add(bool isLikeThis) {
    Finish();
    if (!record_.CanChange()) return;
    if (!model_->Copies().System().HasElements()) {
        Q_EMIT Said(tr("Choose the holdings system above first."));
        return;
    }
    const QModelIndex now = table_->currentIndex();
    const QString barCode = NextBarCode();
    model_->New(isLikeThis && now.isValid() ? std::optional(now.row()) : std::nullopt, barCode);
    GoToBarCode(Count() - 1);
    if (barCode.isEmpty()) table_->Open(table_->currentIndex());
}

void CopiesEditor::GoToBarCode(int row) {
    const auto column = static_cast<int>(model_->Copies().BarCode().value_or(0));
    table_->setCurrentIndex(model_->index(row, column));
    table_->scrollTo(table_->currentIndex());
    table_->setFocus();
}

void CopiesEditor::Remove() {
    Finish();
    const QModelIndex now = table_->currentIndex();
    if (!now.isValid()) return;
    model_->Remove(now.row());
    table_->setCurrentIndex(model_->index(qMin(now.row(), Count() - 1), now.column()));
    table_->setFocus();
}

void CopiesEditor::TakeBarCode() {
    Finish();
    const QModelIndex now = table_->currentIndex();
    const auto element = model_->Copies().BarCode();
    if (!now.isValid() || !element || !record_.CanChange()) return;
    const QString barCode = NextBarCode();
    const QModelIndex cell = now.siblingAtColumn(static_cast<int>(*element));
    if (!barCode.isEmpty()) model_->setData(cell, barCode, Qt::EditRole);
    GoToBarCode(now.row());
}

void CopiesEditor::TakeFocus() {
    if (Count() > 0) {
        table_->setFocus();
    } else {
        new_->setFocus();
    }
}

void CopiesEditor::ShowState() {
    const bool hasNone = Count() > 0 && !table_->currentIndex().isValid();
    if (hasNone) return table_->setCurrentIndex(model_->index(0, 0));  // comes here again
    const HoldingsSystem& system = model_->Copies().System();
    const bool canChange = record_.CanChange() && system.HasElements();
    const bool hasCopy = canChange && table_->currentIndex().isValid();
    new_->setEnabled(canChange);
    like_->setEnabled(hasCopy);
    remove_->setEnabled(hasCopy);
    barCode_->setEnabled(hasCopy && HasNextBarCode());
    systems_->setCurrentIndex(system.HasElements() ? qMax(0, systems_->findText(ToQt(system.name)))
                                                   : 0);
    none_->setVisible(Count() == 0);
    table_->setVisible(Count() > 0);
    if (!system.HasElements()) {
        none_->setText(
            tr("No holdings system is chosen. Choose yours above, and copies stand here, a row "
               "each. Until then, their fields are edited under “Record”."));
    } else {
        none_->setText(tr("This record has no copies. “New Copy” makes one in the form of %1, "
                          "the holdings system in force.")
                           .arg(ToQt(system.name)));
    }
    Q_EMIT Counted();
}

}  // namespace quillory
