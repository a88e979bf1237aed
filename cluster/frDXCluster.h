#pragma once

#include "platform/timer.h"

#include <QDialog>

/// The window of the DX cluster. So far it holds the timer by which a serial cluster is polled; no connection
/// is made.
class frDXCluster : public QDialog {
public:
    /// Milliseconds between two looks at the serial port.
    static constexpr int pollning = 500;

    frDXCluster();
    static frDXCluster& instans();

    platform::Timer* TimerDXCluster;
};
