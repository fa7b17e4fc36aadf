#include "EditorFixture.h"
#include "TestMain.h"

ZUGBLICK_TEST_MAIN(QObject)
