#include "Log.h"

Q_LOGGING_CATEGORY(lcMain, "zugblick.main", QtInfoMsg)
Q_LOGGING_CATEGORY(lcClient, "zugblick.client", QtInfoMsg)
Q_LOGGING_CATEGORY(lcLoco, "zugblick.loco", QtInfoMsg)
Q_LOGGING_CATEGORY(lcPlans, "zugblick.plans", QtInfoMsg)
Q_LOGGING_CATEGORY(lcDisplays, "zugblick.displays", QtInfoMsg)
Q_LOGGING_CATEGORY(lcEbula, "zugblick.ebula", QtInfoMsg)
Q_LOGGING_CATEGORY(lcServer, "zugblick.server", QtInfoMsg)
Q_LOGGING_CATEGORY(lcTools, "zugblick.tools", QtInfoMsg)
