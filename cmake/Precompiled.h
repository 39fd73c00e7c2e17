#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QDebug>
#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>
