#include "platform/omnirig/rigdialog.h"

#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/omnirig/hamlibservice.h"
#include "platform/omnirig/rigdaemon.h"
#include "platform/textfile.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QSerialPortInfo>

#include <utility>

namespace platform {

namespace {

constexpr int kModelRole = Qt::UserRole;
constexpr int kSpeeds[] = {1200, 2400, 4800, 9600, 19200, 38400, 57600, 115200};

// How long, in milliseconds, a radio may take to answer the first time.
constexpr int kAnswer = 3000;
constexpr int kAnswerOfOwn = 8000; ///< with a daemon to start and the radio to open

/// Keeps what holds every word, wherever it stands: "ic 73" finds "Icom IC-7300".
QRegularExpression AllWords(const QString& text) {
    QString pattern;
    for (const QString& word : text.split(u' ', Qt::SkipEmptyParts))
        pattern += QStringLiteral("(?=.*%1)").arg(QRegularExpression::escape(word));
    return QRegularExpression(u'^' + pattern, QRegularExpression::CaseInsensitiveOption);
}

/// "14 025,00", as in this country.
QString KiloHertz(qint64 hertz) { return QLocale().toString(static_cast<double>(hertz) / 1000, 'f', 2); }

/// A port that two radios at this machine hang on; empty if there is none.
QString SharedPort(const AllRigSettings& rigs) {
    QStringList ports;
    for (const RigSettings& rig : rigs) {
        // Behind an address of the network there may be room for two.
        if (rig.way != RigSettings::Way::Model || !rig.port.startsWith(u'/')) continue;
        if (ports.contains(rig.port)) return rig.port;
        ports << rig.port;
    }
    return {};
}

template <class W>
W* Numbered(W* widget, const char* name, int number) {
    widget->setObjectName(QStringLiteral("%1(%2)").arg(QString::fromUtf8(name)).arg(number));
    return widget;
}

} // namespace

// ---- a rig --------------------------------------------------------------------------------------------

RigPage::RigPage(int number, QAbstractItemModel& models) {
    const auto choice = [&](const char* name, const char* text) {
        return Numbered(new QRadioButton(QString::fromUtf8(text)), name, number);
    };
    const auto field = [&](const char* name, const char* label) {
        auto* made = Numbered(new TextBox, name, number);
        made->setAccessibleName(QString::fromUtf8(label));
        return made;
    };
    const auto list = [&](const char* name, const char* label) {
        auto* made = Numbered(new QComboBox, name, number);
        made->setAccessibleName(QString::fromUtf8(label));
        return made;
    };
    optAv = choice("optAv", "Används &inte");
    optAdress = choice("optAdress", "&rigctld som redan är igång");
    optModell = choice("optModell", "Radio ansluten till den här &datorn");
    txtAdress = field("txtAdress", "Adress");
    txtAdress->setPlaceholderText(QStringLiteral("värd:port"));
    txtSök = field("txtSök", "Sök radio");
    txtSök->setPlaceholderText(QStringLiteral("Sök, till exempel ic 7300"));
    txtSök->setClearButtonEnabled(true);
    filter_ = new QSortFilterProxyModel(this);
    filter_->setSourceModel(&models);
    lstModell = Numbered(new QListView, "lstModell", number);
    lstModell->setAccessibleName(QStringLiteral("Radio"));
    lstModell->setModel(filter_);
    lstModell->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstModell->setUniformItemSizes(true);
    cmbPort = list("cmbPort", "Port");
    cmbPort->setEditable(true);
    cmbPort->setCompleter(nullptr); // ttyUSB1 is not the beginning of ttyUSB10
    cmbHastighet = list("cmbHastighet", "Hastighet");
    cmbHastighet->addItem(QStringLiteral("Radions egen"), 0);
    for (const int speed : kSpeeds) cmbHastighet->addItem(QString::number(speed), speed);
    cmdTest = Numbered(NewButton("cmdTest", QStringLiteral("&Test")), "cmdTest", number);
    lblSvar = Numbered(new QLabel, "lblSvar", number);
    lblSvar->setWordWrap(true);
    lblSvar->setTextFormat(Qt::PlainText); // it holds what others say
    lblModell = Numbered(new QLabel, "lblModell", number);
    lblModell->setTextFormat(Qt::PlainText);

    constexpr int indent = 24;
    auto* address = new QFormLayout;
    address->setContentsMargins(indent, 0, 0, 0);
    address->addRow(QStringLiteral("&Adress"), txtAdress);
    auto* radio = new QFormLayout;
    radio->setContentsMargins(indent, 0, 0, 0);
    radio->addRow(QStringLiteral("Sö&k radio"), txtSök);
    radio->addRow(QString(), lstModell);
    radio->addRow(QString(), lblModell);
    radio->addRow(QStringLiteral("&Port"), cmbPort);
    radio->addRow(QStringLiteral("&Hastighet"), cmbHastighet);
    auto* test = new QHBoxLayout;
    test->addWidget(cmdTest);
    test->addWidget(lblSvar, 1);
    auto* place = new QVBoxLayout(this);
    place->addWidget(optAv);
    place->addWidget(optAdress);
    place->addLayout(address);
    place->addWidget(optModell);
    place->addLayout(radio, 1);
    place->addLayout(test);

    for (QRadioButton* button : {optAv, optAdress, optModell})
        connect(button, &QRadioButton::toggled, this, [this] {
            Enable();
            Edited();
        });
    for (auto* combo : {cmbPort, cmbHastighet})
        connect(combo, &QComboBox::currentTextChanged, this, [this] { Edited(); });
    txtAdress->OnChange([this] { Edited(); });
    txtSök->OnChange([this] { Search(); });
    txtSök->installEventFilter(this);
    connect(lstModell->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& chosen) {
                if (chosen.isValid() && !isSearching_) Choose(chosen.data(kModelRole).toInt());
            });
}

bool RigPage::eventFilter(QObject* watched, QEvent* event) {
    const bool isEnter =
        event->type() == QEvent::KeyPress && (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ||
                                              static_cast<QKeyEvent*>(event)->key() == Qt::Key_Enter);
    if (watched != txtSök || !isEnter) return false;
    // Who searches wants the list next, not to save and be done.
    lstModell->setFocus();
    return true;
}

void RigPage::Search() {
    // A list that shrinks moves its current row about; that is no choice.
    isSearching_ = true;
    filter_->setFilterRegularExpression(AllWords(txtSök->text()));
    isSearching_ = false;
    const bool isOne = filter_->rowCount() == 1 && !txtSök->text().isEmpty();
    if (isOne) Choose(filter_->index(0, 0).data(kModelRole).toInt());
    FindModel();
}

void RigPage::Choose(int model) {
    const bool isOther = std::exchange(model_, model) != model;
    ShowModel();
    if (isOther) Edited();
}

void RigPage::ShowModel() {
    const QAbstractItemModel& all = *filter_->sourceModel();
    const QModelIndexList found = all.match(all.index(0, 0), kModelRole, model_, 1, Qt::MatchExactly);
    const QString name =
        found.isEmpty() ? QStringLiteral("modell %1").arg(model_) : found.first().data().toString();
    lblModell->setText(model_ == 0 ? QStringLiteral("Ingen radio är vald.")
                                   : QStringLiteral("Vald: ") + name);
}

void RigPage::Edited() {
    if (onEdit_ && !isShowing_) onEdit_();
}

void RigPage::Enable() {
    txtAdress->setEnabled(optAdress->isChecked());
    for (QWidget* widget : std::initializer_list<QWidget*>{txtSök, lstModell, cmbPort, cmbHastighet})
        widget->setEnabled(optModell->isChecked());
    cmdTest->setEnabled(!optAv->isChecked());
}

void RigPage::Show(const RigSettings& settings, const QStringList& ports) {
    isShowing_ = true;
    const auto done = qScopeGuard([this] { isShowing_ = false; });
    QRadioButton* ways[] = {optAv, optAdress, optModell};
    ways[static_cast<int>(settings.way)]->setChecked(true);
    Enable();
    txtAdress->setText(settings.address);
    txtSök->clear();
    model_ = settings.model;
    ShowModels();
    cmbPort->clear();
    cmbPort->addItems(ports);
    cmbPort->setEditText(settings.port);
    if (cmbHastighet->findData(settings.speed) < 0)
        cmbHastighet->addItem(QString::number(settings.speed), settings.speed);
    cmbHastighet->setCurrentIndex(cmbHastighet->findData(settings.speed));
    lblSvar->clear();
}

void RigPage::ShowModels() {
    Search();
    ShowModel();
}

void RigPage::FindModel() {
    isSearching_ = true;
    const auto done = qScopeGuard([this] { isSearching_ = false; });
    const QModelIndexList found =
        filter_->match(filter_->index(0, 0), kModelRole, model_, 1, Qt::MatchExactly);
    if (found.isEmpty()) return lstModell->setCurrentIndex({});
    lstModell->setCurrentIndex(found.first());
    lstModell->scrollTo(found.first());
}

RigSettings RigPage::Settings() const {
    return {.way = optModell->isChecked()   ? RigSettings::Way::Model
                   : optAdress->isChecked() ? RigSettings::Way::Address
                                            : RigSettings::Way::Unused,
            .address = txtAdress->text().trimmed(),
            .model = model_,
            .port = cmbPort->currentText().trimmed(),
            .speed = cmbHastighet->currentData().toInt()};
}

QString RigPage::Fault() const {
    const RigSettings set = Settings();
    // What the settings' file has no way to hold.
    for (const QString& text : {set.address, set.port})
        if (text.contains(u'"') || FromCp1252(ToCp1252(text)) != text)
            return QStringLiteral("Citattecken och ovanliga tecken kan inte användas i adress eller port.");
    if (set.way == RigSettings::Way::Address && !ReadRigAddress(set.address))
        return QStringLiteral("Adressen ska vara värd:port, till exempel 127.0.0.1:4532.");
    if (set.way == RigSettings::Way::Model && set.model == 0)
        return QStringLiteral("Välj en radio i listan.");
    return {};
}

// ---- the window ---------------------------------------------------------------------------------------

RigDialog::RigDialog(HamlibService& service, QWidget* over)
    : QDialog(over)
    , service_(service) {
    setObjectName(QStringLiteral("RigDialog"));
    setWindowTitle(QStringLiteral("Radio Inställning"));
    tabRig = Named(new QTabWidget, "tabRig");
    for (int number = 1; number <= static_cast<int>(pages.size()); ++number) {
        auto* page = pages[static_cast<size_t>(number - 1)] = new RigPage(number, models_);
        tabRig->addTab(page, QStringLiteral("Rig &%1").arg(number));
        connect(page->cmdTest, &QPushButton::clicked, this, [this, number] { Test(number); });
        // The answer was to other settings than those that stand here now.
        page->OnEdit([this, number] {
            if (tested_ == number) EndTest();
            pages[static_cast<size_t>(number - 1)]->lblSvar->clear();
        });
    }
    cmdSpara = NewButton("cmdSpara", QStringLiteral("&Spara"));
    cmdAvbryt = NewButton("cmdAvbryt", QStringLiteral("Stäng"));
    cmdSpara->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cmdSpara);
    buttons->addWidget(cmdAvbryt);
    auto* place = new QVBoxLayout(this);
    place->addWidget(tabRig, 1);
    place->addLayout(buttons);
    connect(cmdSpara, &QPushButton::clicked, this, [this] { Save(); });
    connect(cmdAvbryt, &QPushButton::clicked, this, &RigDialog::reject);
    patience_.setSingleShot(true);
    connect(&patience_, &QTimer::timeout, this, [this] { Tell(tested_); });
}

RigDialog::~RigDialog() {
    EndTest();
    if (!lister_) return;
    // It ends without anybody to wait for it.
    lister_->disconnect();
    connect(lister_, &QProcess::finished, lister_, &QObject::deleteLater);
    lister_->setParent(QCoreApplication::instance());
    lister_->kill();
}

void RigDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous()) return;
    Fill();
    ReadModels();
    tabRig->setFocus();
}

void RigDialog::Fill() {
    QStringList ports;
    for (const QSerialPortInfo& port : QSerialPortInfo::availablePorts()) ports << port.systemLocation();
    for (size_t i = 0; i < pages.size(); ++i) pages[i]->Show(service_.Settings()[i], ports);
}

void RigDialog::ReadModels() {
    if (models_.rowCount() > 0 || lister_) return;
    lister_ = new QProcess(this);
    connect(lister_, &QProcess::finished, this, [this](int, QProcess::ExitStatus status) {
        if (status != QProcess::NormalExit) return;
        for (const rigctld::Model& model : rigctld::ReadModels(lister_->readAllStandardOutput())) {
            auto* item = new QStandardItem(model.name);
            item->setData(model.number, kModelRole);
            models_.appendRow(item);
        }
        models_.sort(0);
        for (RigPage* page : pages) page->ShowModels();
        lister_->deleteLater();
    });
    // The next time the window is shown is another try.
    connect(lister_, &QProcess::errorOccurred, this, [this] { lister_->deleteLater(); });
    lister_->setStandardErrorFile(QProcess::nullDevice());
    lister_->start(RigctldPath(), {QStringLiteral("--list")});
}

void RigDialog::Save() {
    AllRigSettings settings;
    for (size_t i = 0; i < pages.size(); ++i) {
        if (const QString fault = pages[i]->Fault(); !fault.isEmpty()) {
            tabRig->setCurrentIndex(static_cast<int>(i));
            return MsgBox(fault, tabRig->tabText(static_cast<int>(i)).remove(u'&'));
        }
        settings[i] = pages[i]->Settings();
    }
    if (const QString shared = SharedPort(settings); !shared.isEmpty())
        return MsgBox(QStringLiteral("Två radioapparater kan inte ha samma port, %1.").arg(shared),
                      windowTitle());
    try {
        service_.Save(settings);
    } catch (const Failure& failure) {
        return MsgBox(QStringLiteral("Inställningarna kunde inte sparas.\n") + failure.message(),
                      windowTitle());
    }
    EndTest();
    hide();
}

// ---- the test of a radio ------------------------------------------------------------------------------

void RigDialog::Test(int rig) {
    RigPage& page = *pages.at(static_cast<size_t>(rig - 1));
    if (const QString fault = page.Fault(); !fault.isEmpty()) return page.lblSvar->setText(fault);
    EndTest();
    AllRigSettings tried;
    for (int other = 1; other <= static_cast<int>(tried.size()); ++other)
        tried[static_cast<size_t>(other - 1)] = other == rig ? page.Settings() : service_.InUse(other);
    if (const QString shared = SharedPort(tried); !shared.isEmpty())
        return page.lblSvar->setText(QStringLiteral("Porten %1 används av en annan rig.").arg(shared));
    tested_ = rig;
    page.lblSvar->setText(QStringLiteral("Frågar radion ..."));
    const RigSettings settings = page.Settings();
    service_.Link(rig).OnReading([this, rig] { Tell(rig); });
    service_.TryOut(rig, settings);
    patience_.start(settings.way == RigSettings::Way::Model ? kAnswerOfOwn : kAnswer);
}

void RigDialog::Tell(int rig) {
    const RigLink& link = service_.Link(rig);
    QString answer = QStringLiteral("Ingen kontakt: ") +
                     (link.Trouble().isEmpty() ? QStringLiteral("inget svar än") : link.Trouble());
    if (link.IsOnLine())
        answer = QStringLiteral("Radion svarar: %1 kHz %2").arg(KiloHertz(link.Frequency()), link.Mode());
    pages.at(static_cast<size_t>(rig - 1))->lblSvar->setText(answer);
    // From now on its silence is news, as its answers are.
    constexpr int silence = 2000;
    patience_.start(silence);
}

void RigDialog::EndTest() {
    patience_.stop();
    const int rig = std::exchange(tested_, 0);
    if (rig == 0) return;
    service_.Link(rig).OnReading({});
    pages.at(static_cast<size_t>(rig - 1))->lblSvar->clear();
}

void RigDialog::reject() {
    EndTest();
    service_.Revert();
    hide();
}

void RigDialog::closeEvent(QCloseEvent* event) {
    event->ignore();
    reject();
}

} // namespace platform
