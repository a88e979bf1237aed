#include "cluster/frDXCluster.h"

#include "platform/windows.h"

frDXCluster::frDXCluster() {
    setObjectName(QStringLiteral("frDXCluster"));
    // Nothing is connected, so there is nothing to look for.
    TimerDXCluster = new platform::Timer(
        QStringLiteral("TimerDXCluster"), [] {}, this);
    TimerDXCluster->Interval(pollning);
}

frDXCluster& frDXCluster::instans() { return platform::SingleWindow<frDXCluster>::get(); }
