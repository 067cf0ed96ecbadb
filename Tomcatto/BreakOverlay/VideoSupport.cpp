#include "VideoSupport.h"

#include <QtMultimedia/QMediaFormat>

namespace tomcatto {

bool VideoSupport::canPlay()
{
    return !QMediaFormat().supportedFileFormats(QMediaFormat::Decode).isEmpty();
}

}
