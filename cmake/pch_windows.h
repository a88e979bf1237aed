#pragma once
#include "cmake/pch_core.h"

#include <QtWidgets>
