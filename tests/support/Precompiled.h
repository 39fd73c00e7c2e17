#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCoroTask>
#include <QObject>
#include <QSignalSpy>
#include <QString>
#include <QTemporaryDir>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>
