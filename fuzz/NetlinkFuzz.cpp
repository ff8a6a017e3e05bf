// SPDX-License-Identifier: MIT
#include <linux/rtnetlink.h>
#include "Fuzz.h"

#include "platform/linux/LinkKinds.h"
#include "platform/linux/RouteMessages.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // As in the recorded answers.
    constexpr std::uint32_t sequence = 1;
    constexpr std::uint32_t port = 7;
    const auto bytes = fuzz::asInputBytes(data, size);
    const auto takeLink = [](netlink::Bytes payload) {
        const auto link = parseLink(payload);
        if (!link) return;
        fuzz::expect(!link->name.empty() && link->name.size() <= 15 && link->index != 0);
        (void)kindOf(*link, {});
    };
    const auto takeAddress = [](netlink::Bytes payload) { (void)parseAddress(payload); };
    const auto links = readAnswer(bytes, sequence, port, RTM_NEWLINK, takeLink);
    const auto addresses = readAnswer(bytes, sequence, port, RTM_NEWADDR, takeAddress);
    fuzz::expect(links.answer == addresses.answer && links.error == addresses.error);
    fuzz::expect(links.error >= 0 && links.error < 4096);
    (void)announcesLinkChange(bytes);
    takeLink(bytes);
    takeAddress(bytes);
    return 0;
}
