#pragma once
#include "cmake/pch_test_core.h"

#include <QTest>
#include <QtWidgets>
