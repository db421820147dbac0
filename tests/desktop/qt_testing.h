// What tests on real Qt include again and again. It is their precompiled header.
#pragma once

#include "base/carry_on.h"
#include "desktop/qt/conversions.h"
#include "eventually.h"
#include "fakes/temporary_folder.h"
#include "testing.h"

#include <QtTest>
#include <QtWidgets>
