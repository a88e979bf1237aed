#pragma once

#include "platform/omnirig/rigctld.h"
#include "platform/omnirig/rigsettings.h"
#include "platform/widgets.h"

#include <QDialog>
#include <QListView>
#include <QPointer>
#include <QProcess>
#include <QRadioButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTimer>

#include <array>
#include <functional>

namespace platform {

class HamlibService;

/// The settings of one rig.
class RigPage : public QWidget {
public:
    /// @param models each with its number as user data
    RigPage(int number, QAbstractItemModel& models);

    QRadioButton *optAv, *optAdress, *optModell;
    TextBox *txtAdress, *txtSök;
    QListView* lstModell;
    QComboBox *cmbPort, *cmbHastighet;
    QPushButton* cmdTest;
    QLabel *lblModell, *lblSvar;

    /// @param ports the serial ports of this machine
    void Show(const RigSettings& settings, const QStringList& ports);
    /// The settings as they stand in the fields.
    RigSettings Settings() const;
    /// What is wrong with them; empty if nothing is.
    QString Fault() const;
    /// Looks again for the radio that is set, and for what is searched; for when the list has come.
    void ShowModels();
    /// Something has been changed by the operator.
    void OnEdit(std::function<void()> edit) { onEdit_ = std::move(edit); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Enable();
    void Search();
    void FindModel();
    void Choose(int model);
    void ShowModel();
    void Edited();

    QSortFilterProxyModel* filter_;
    int model_ = 0; ///< the radio that is set, in the list or not
    bool isSearching_ = false;
    bool isShowing_ = false;
    std::function<void()> onEdit_;
};

/// The settings of the rig service. It stands beside the contest, which goes on.
class RigDialog : public QDialog {
public:
    RigDialog(HamlibService& service, QWidget* over);
    ~RigDialog() override;

    QTabWidget* tabRig;
    std::array<RigPage*, 4> pages;
    QPushButton *cmdSpara, *cmdAvbryt;

    void Save();
    /// Reaches for the radio as it is set here, saved or not, and tells what it says.
    void Test(int rig);

    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void ReadModels();
    void Fill();
    void Tell(int rig);
    void EndTest();

    HamlibService& service_;
    QStandardItemModel models_;
    QPointer<QProcess> lister_;
    int tested_ = 0; ///< the rig whose answers are shown; 0: none
    QTimer patience_;
};

} // namespace platform
