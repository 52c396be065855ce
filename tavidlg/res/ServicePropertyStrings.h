// String ids of the service properties dialog (our own, from the server range).
#pragma once

enum : unsigned {
    IDS_SVCPROP_BAD_ADDRESS = 60150,
    IDS_SVCPROP_DUPLICATE = 60151,
    IDS_SVCPROP_PORT_IN_USE = 60152,
    IDS_SVCPROP_BAD_STORED = 60153,
};
