#include "EbulaLayout.h"

EbulaLayout::EbulaLayout(double sceneWidth, double sceneHeight)
    : width(sceneWidth), height(sceneHeight), header(static_cast<float>(height * 0.075)),
      quarter(static_cast<int>(width / 4.0)), headerBottom(static_cast<int>(header)),
      third(static_cast<int>(width / 3.0)),
      infoBottom(static_cast<int>(height * 0.05) + headerBottom),
      tableRect(1, infoBottom, static_cast<int>(width) - 2,
                static_cast<int>(height - infoBottom - height / 15.0 - height / 15.0)),
      column(static_cast<int>(width / 7.0)),
      delayBox(0.0, tableRect.bottom() + 2.0, static_cast<int>(width / 6.0 * 4.0),
               static_cast<int>(height / 15.0)),
      delayTextX(static_cast<int>(width / 6.0) * 5.0 + 10.0), menuPitch(width / 10.0),
      menuHeight(static_cast<int>(height - tableRect.bottom() - 2.0 - height / 15.0))
{
}
