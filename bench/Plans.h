// Large plans on a large exchange: whole, as an administrator applies them.
#pragma once

namespace cordboard::bench {

void MeasurePlans();

}  // namespace cordboard::bench
