#pragma once
#include "cmake/pch_core.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
