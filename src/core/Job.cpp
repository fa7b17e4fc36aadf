#include "Job.h"

void RegisterJobType()
{
    qRegisterMetaType<Job>("Job");
}
