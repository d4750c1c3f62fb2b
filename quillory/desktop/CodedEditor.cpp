#include <quillory/coded/Material.h>
#include <quillory/desktop/CodedEditor.h>
#include <quillory/desktop/CodedForm.h>
#include <quillory/desktop/CodedStrip.h>
#include <quillory/desktop/OpenRecord.h>
#include <quillory/desktop/Texts.h>
#include <quillory/edits/CodedChange.h>
#include <quillory/edits/EmptyField.h>
#include <quillory/edits/NewCodedFields.h>

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

namespace quillory {
namespace {

bool IsCodedTag(std::string_view tag) {
    return tag == "006" || tag == "007" || tag == "008";
}

// Whether this position says by which material a field is read.
bool SaysMaterial(const Place& place) {
    if (place.IsLeader()) return place.first == 6 || place.first == 7;
    return place.first == 0 && place.Tag() != "008";
}

std::size_t MaterialAt(const Place& place) {
    return place.IsLeader() ? 6 : 0;
}

// "008 books", "007[2] sound recording".
QString TabText(const Place& place, zorby::CFType form) {
    if (place.IsLeader()) return CodedEditor::tr("Leader");
    const QString name = ToQt(FormName(form));
    return ToQt(PlaceText(place)) + u' ' + (name.isEmpty() ? QStringLiteral("?") : name);
}

}  // namespace

CodedEditor::CodedEditor(OpenRecord& record, const CodeLists& lists, QWidget* parent)
    : QWidget(parent),
      record_(record),
      lists_(lists),
      bar_(new QTabBar(this)),
      add_(new QPushButton(this)),
      remove_(new QPushButton(this)),
      menu_(new QMenu(this)),
      strip_(new CodedStrip(this)),
      area_(new QScrollArea(this)),
      none_(new QLabel(this)) {
    MakeButtons();
    bar_->setAccessibleName(tr("Coded fields"));
    bar_->setExpanding(false);
    bar_->setDrawBase(false);
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setFocusPolicy(Qt::NoFocus);
    none_->setWordWrap(true);
    none_->setMargin(8);
    auto* top = new QHBoxLayout;
    top->addWidget(bar_, 1);
    top->addWidget(add_);
    top->addWidget(remove_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->addLayout(top);
    layout->addWidget(none_);
    layout->addWidget(strip_);
    layout->addWidget(area_, 1);
    connect(bar_, &QTabBar::currentChanged, this, [this] {
        missing_.clear();
        ShowTab();
    });
    connect(strip_, &CodedStrip::Clicked, this, [this](int position) {
        if (form_ != nullptr) form_->GoTo(position);
    });
    connect(&record, &OpenRecord::Replaced, this, [this] {
        remarks_.clear();
        missing_.clear();
        ShowRecord();
    });
    connect(&record, &OpenRecord::Changed, this, &CodedEditor::ShowRecord);
}

void CodedEditor::MakeButtons() {
    add_->setText(tr("Add"));
    add_->setToolTip(tr("Add a 006, a 007 or an 008"));
    add_->setMenu(menu_);
    remove_->setText(tr("Remove"));
    remove_->setToolTip(tr("Remove the field that is shown; Undo brings it back"));
    connect(menu_, &QMenu::aboutToShow, this, &CodedEditor::FillAddMenu);
    connect(remove_, &QPushButton::clicked, this, &CodedEditor::Remove);
}

void CodedEditor::FillAddMenu() {
    menu_->clear();
    FillSubmenu(*menu_->addMenu(tr("00&6, another material")), "006", New006Fields(lists_));
    FillSubmenu(*menu_->addMenu(tr("00&7, the physical form")), "007", New007Fields(lists_));
    QAction* add008 = menu_->addAction(tr("00&8, common to all materials"));
    const bool has008 =
        std::ranges::any_of(tabs_, [](const Tab& tab) { return tab.place.Tag() == "008"; });
    add008->setEnabled(!has008 && record_.Session() != nullptr);
    connect(add008, &QAction::triggered, this,
            [this] { Add("008", New008Field(record_.Session()->Now().leader)); });
}

void CodedEditor::FillSubmenu(QMenu& menu, const std::string& tag,
                              std::vector<NewCodedField> fields) {
    menu.setEnabled(record_.Session() != nullptr);
    for (NewCodedField& field : fields) {
        QAction* action = menu.addAction(ToQt(field.name));
        connect(action, &QAction::triggered, this,
                [this, tag, content = std::move(field.content)] { Add(tag, content); });
    }
}

void CodedEditor::Add(const std::string& tag, const std::string& content) {
    if (record_.Session() == nullptr) return;
    const std::size_t place = PlaceOfNew(record_.Session()->Now(), tag);
    record_.Do([&](EditSession& session) { session.Insert(place, tag, content); });
    const auto tab = std::ranges::find(tabs_, FieldIndex(place), &Tab::field);
    if (tab == tabs_.end()) return;
    Select(static_cast<std::size_t>(tab - tabs_.begin()), 1);
}

void CodedEditor::Remove() {
    const Tab* tab = Current();
    if (tab == nullptr || !tab->field) return;
    const std::size_t field = *tab->field;
    record_.Do([field](EditSession& session) { session.Remove(field); });
}

void CodedEditor::SetActive(bool isActive) {
    if (!isActive) Finish();
    isActive_ = isActive;
    if (isActive) ShowRecord();
}

std::vector<CodedEditor::Tab> CodedEditor::TabsOf(const EditSession& session) const {
    std::vector<Tab> tabs{{std::nullopt, Place::OfLeader(), tr("Leader")}};
    const auto& fields = session.Now().fields;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!IsCodedTag(fields[i].tag)) continue;
        const Place place = PlaceOf(session.Now(), i);
        tabs.push_back({i, place, TabText(place, FormOfCoded(session.Now(), i))});
    }
    return tabs;
}

// The form of the same field stays, and one of the same tag for another record.
void CodedEditor::ShowRecord() {
    if (!isActive_) return;
    tabs_ = record_.Session() == nullptr ? std::vector<Tab>() : TabsOf(*record_.Session());
    auto wanted = std::ranges::find(tabs_, shown_, &Tab::place);
    const auto ofTag = [this](std::string_view tag) {
        return std::ranges::find_if(tabs_,
                                    [tag](const Tab& tab) { return tab.place.Tag() == tag; });
    };
    if (wanted == tabs_.end()) wanted = ofTag(shown_.Tag());
    if (wanted == tabs_.end()) wanted = ofTag("008");
    if (wanted == tabs_.end()) wanted = tabs_.begin();
    const QSignalBlocker quiet(bar_);
    while (bar_->count() > static_cast<int>(tabs_.size())) bar_->removeTab(bar_->count() - 1);
    for (int i = 0; i < static_cast<int>(tabs_.size()); ++i) {
        const QString& text = tabs_[static_cast<std::size_t>(i)].text;
        if (i >= bar_->count()) bar_->addTab(text);
        bar_->setTabText(i, text);
    }
    bar_->setCurrentIndex(static_cast<int>(wanted - tabs_.begin()));
    ShowTab();
}

const CodedEditor::Tab* CodedEditor::Current() const {
    const auto index = static_cast<std::size_t>(bar_->currentIndex());
    return index < tabs_.size() ? &tabs_[index] : nullptr;
}

std::string CodedEditor::ContentOf(const Tab& tab) const {
    const auto& now = record_.Session()->Now();
    return tab.field ? now.fields[*tab.field].content : now.leader;
}

void CodedEditor::ShowTab() {
    const Tab* tab = Current();
    remove_->setEnabled(tab != nullptr && tab->field && record_.CanChange());
    add_->setEnabled(record_.CanChange());
    if (tab == nullptr || record_.Session() == nullptr) return ShowNone();
    ShowForm(*tab);
}

// A form may be shown another one in the middle of its own work. The focus of what is hidden would
// go to the next widget, which may be the list and take it for a step to the next record.
void CodedEditor::RemoveForm() {
    if (form_ == nullptr) return;
    if (form_->isAncestorOf(QApplication::focusWidget())) bar_->setFocus();
    form_->disconnect(this);
    area_->takeWidget()->hide();
    form_->deleteLater();
    form_ = nullptr;
}

void CodedEditor::ShowNone() {
    strip_->hide();
    RemoveForm();
    none_->setText(tr("No record is in hand."));
    none_->show();
    Q_EMIT PlaceChanged();
}

void CodedEditor::MakeForm(const Tab& tab, zorby::CFType form, const std::string& content) {
    const bool stays =
        form_ != nullptr && shown_ == tab.place && form_->isAncestorOf(focusWidget());
    const int position = stays ? form_->InHand().first : -1;
    RemoveForm();
    shown_ = tab.place;
    form_ = new CodedForm(tab.place, form, lists_, content, area_);
    connect(form_, &CodedForm::Changed, this, &CodedEditor::Take);
    connect(form_, &CodedForm::HandChanged, this, [this] {
        MarkHand();
        if (form_->focusWidget() != nullptr) area_->ensureWidgetVisible(form_->focusWidget());
    });
    connect(form_, &CodedForm::Refused, this, [this](const QString& element, const QString& typed) {
        Q_EMIT Said(tr("%1 has no value “%2”.").arg(element, typed));
    });
    form_->FitInto(area_->viewport()->width());
    area_->setWidget(form_);
    form_->show();
    if (stays) form_->GoTo(position);
}

void CodedEditor::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (form_ != nullptr) form_->FitInto(area_->viewport()->width());
}

void CodedEditor::ShowForm(const Tab& tab) {
    const std::string content = ContentOf(tab);
    const zorby::CFType form = FormOfCoded(record_.Session()->Now(), tab.field);
    if (form_ == nullptr || shown_ != tab.place || !form_->Fits(form, content)) {
        MakeForm(tab, form, content);
    } else {
        form_->SetContent(content);
    }
    form_->SetRemarks(remarks_);
    form_->setEnabled(record_.CanChange());
    strip_->SetBytes(content);
    strip_->show();
    ShowAdvice(FormName(form).empty());
    MarkHand();
}

void CodedEditor::ShowAdvice(bool isUnknown) {
    none_->setVisible(isUnknown || !missing_.empty());
    if (!missing_.empty()) {
        none_->setText(tr("This record has no %1. “Add” makes one.").arg(ToQt(missing_)));
    } else if (isUnknown) {
        none_->setText(
            tr("By which material this field is to be read can't be said: no material "
               "has such a code at the beginning of the field, or in positions 06 and "
               "07 of the Leader."));
    }
}

void CodedEditor::MarkHand() {
    const Place place = form_ == nullptr ? Place() : form_->InHand();
    strip_->Mark(place.first, place.last);
    Q_EMIT PlaceChanged();
}

// Steps through the materials begin from where the first of them began: what one of them had no
// place for comes back with the next one that has.
void CodedEditor::Take(int first, const std::string& value) {
    const Tab* tab = Current();
    if (tab == nullptr || record_.Session() == nullptr) return;
    const EditSession::State now = record_.Session()->Now();
    const Place place = tab->place.Positions(first, first);
    const std::string burst = "coded " + PlaceText(place);
    if (!SaysMaterial(place)) {
        record_.Do([&](EditSession& session) {
            session.Become(
                WithCoded(now, tab->field, static_cast<std::size_t>(first), value, lists_), burst);
        });
        return;
    }
    std::string material = ContentOf(*tab).substr(MaterialAt(place), place.IsLeader() ? 2 : 1);
    material.replace(static_cast<std::size_t>(first) - MaterialAt(place), 1, value);
    const bool goesOn = steps_.after == now && steps_.field == tab->place;
    if (!goesOn) steps_.before = now;
    steps_.field = tab->place;
    steps_.after = WithCoded(steps_.before, tab->field, MaterialAt(place), material, lists_);
    const EditSession::State changed = steps_.after;
    record_.Do([&](EditSession& session) { session.Become(changed, burst); });
    SayLost(NamesOfLost(steps_.before, changed));
}

void CodedEditor::SayLost(const std::vector<std::string>& names) {
    if (names.empty()) return;
    QStringList texts;
    for (const std::string& name : names) texts.push_back(ToQt(name));
    Q_EMIT Said(tr("This material has no place for: %1. The way back brings it back.")
                    .arg(texts.join(QStringLiteral(", "))));
}

void CodedEditor::SetRemarks(const std::vector<Remark>& remarks) {
    remarks_ = remarks;
    if (form_ != nullptr && isActive_) form_->SetRemarks(remarks);
}

void CodedEditor::Select(std::size_t tab, int position) {
    bar_->setCurrentIndex(static_cast<int>(tab));
    if (form_ != nullptr) form_->GoTo(position);
}

void CodedEditor::GoToTag(std::string_view tag) {
    if (tabs_.empty()) return;
    const std::size_t count = tabs_.size();
    const auto current = static_cast<std::size_t>(std::max(bar_->currentIndex(), 0));
    const bool isInHand = form_ != nullptr && form_->isAncestorOf(focusWidget());
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t next = (current + i + (isInHand ? 1 : 0)) % count;
        if (tabs_[next].place.Tag() != tag) continue;
        Select(next);
        return;
    }
    missing_ = tag;
    ShowTab();
    add_->setFocus();
}

void CodedEditor::GoTo(const Place& place) {
    const auto tab = std::ranges::find_if(tabs_, [&place](const Tab& each) {
        return each.place.Tag() == place.Tag() &&
               std::max(each.place.occurrence, 1U) == std::max(place.occurrence, 1U);
    });
    if (tab == tabs_.end()) return GoToTag(place.Tag());
    Select(static_cast<std::size_t>(tab - tabs_.begin()), place.first);
}

Place CodedEditor::CurrentPlace() const {
    return form_ == nullptr ? Place() : form_->InHand();
}

const Element* CodedEditor::CurrentElement() const {
    return form_ == nullptr ? nullptr : form_->ElementInHand();
}

void CodedEditor::TellTyped() {
    if (form_ != nullptr && isActive_) form_->TellTyped();
}

void CodedEditor::Finish() {
    if (form_ != nullptr) form_->Finish();
}

}  // namespace quillory
