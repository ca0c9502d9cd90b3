#include "tools/ProcessSetup.h"

#include <QTextCodec>

#include <fcntl.h>
#include <unistd.h>

namespace Orvida::Tools {

namespace {

// Otherwise Qt would decode file names by the locale and lose letters in "C".
void useUtf8()
{
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
}

// A file that is opened takes the place of a closed descriptor, and what is meant for standard error would be
// written into it. So each closed one is opened in the direction in which nothing uses it: its use still
// fails.
void occupyClosedDescriptors()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(descriptor, F_GETFD) < 0)
            open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
}

} // namespace

void setUpProcess()
{
    occupyClosedDescriptors();
    useUtf8();
}

} // namespace Orvida::Tools
