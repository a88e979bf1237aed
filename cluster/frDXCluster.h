#pragma once

#include "platform/serialport.h"
#include "platform/tcpsocket.h"
#include "platform/timer.h"
#include "platform/widgets.h"

#include <QDialog>
#include <QPlainTextEdit>

/// What the DX cluster sends, and what the operator sends to it. Closing the window hides it; the connection
/// is its own and goes with it when it is unloaded.
class frDXCluster : public QDialog {
public:
    /// Milliseconds between two looks at the serial modem.
    static constexpr int pollning = 500;

    frDXCluster();
    static frDXCluster& instans();
    /// Lets go of the window and of the connection.
    static void LaddaUr();

    QPlainTextEdit* txtMSCom;
    platform::TextBox* txtCMD;
    QPushButton *cmdEnter, *cmdSändDX, *cmdCancel;
    platform::Timer* TimerDXCluster;
    platform::TcpSocket* WinsockSVK;
    platform::SerialPort* mscCluster;

    void Visa();
    /// Puts the caret of txtMSCom at its end and the text there.
    void VisaText(const QString& text);
    /// Of a long text the last part stays.
    void KortaText();

    void cmdEnter_Click();
    void cmdSändDX_Click();
    void cmdCancel_Click();

    /// Escape: the way back to the entry form.
    void reject() override { cmdCancel_Click(); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void ByggFönster();
    void WinsockSVK_DataArrival();
    /// Sends the operator's own call.
    void LoggaIn();
    void WinsockSVK_Close();
    void TimerDXCluster_Tick();
    /// @return whether the way that the connection goes took the text
    bool Sänd(const QString& text);
};
