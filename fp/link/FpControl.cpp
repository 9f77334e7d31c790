#include "fp/link/FpControl.h"

#include <log4cpp/Category.hh>

#include <cstdint>
#include <cstring>
#include <mutex>

namespace FP {

namespace {

using Payload = IFpAdapter::Payload;

Payload Bytes(std::initializer_list<unsigned char> bytes) {
    Payload p(bytes.size());
    size_t i = 0;
    for (unsigned char b : bytes)
        p.Set(i++, b);
    return p;
}

// Reads outside a short payload give 0 (the slice guarantees it), so a report
// cut short is taken with its missing bytes as zero.
uint16_t Be16(Payload const& p) {
    return static_cast<uint16_t>((p[0] << 8) | p[1]);
}

}  // namespace

FpControl::FpControl(IFpAdapter& adapter)
    : log_(log4cpp::Category::getInstance("fpcontrol")), adapter_(adapter) {}

FpControl::~FpControl() {
    // Waits for a delivery under way; the adapter's handlers stay registered,
    // so it must still be destroyed first or kept quiet.
    ClearListeners(temperatureListeners_);
    ClearListeners(fanListeners_);
    ClearListeners(keyListeners_);
    ClearListeners(initListeners_);
}

unsigned char FpControl::GetTesselSlotId() {
    Payload r = adapter_.SendRequest(OP_SLOT_ID, Payload(), kRequestTimeoutMs);
    if (r.Empty()) {
        log_.error("Failed to read Tessel Slot Id.");
        return 0;
    }
    return r[0];
}

float FpControl::GetTesselSlotVoltage() {
    Payload r = adapter_.SendRequest(OP_SLOT_VOLTAGE, Payload(), kRequestTimeoutMs);
    if (r.Empty()) {
        log_.error("Failed to read Tessel Slot Voltage.");
        return 0.0f;
    }
    uint32_t bits =
        (uint32_t(r[0]) << 24) | (uint32_t(r[1]) << 16) | (uint32_t(r[2]) << 8) | uint32_t(r[3]);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

unsigned char FpControl::GetDisplayType() {
    Payload r = adapter_.SendRequest(OP_DISPLAY_TYPE, Payload(), kRequestTimeoutMs);
    if (r.Empty()) {
        log_.error("%s() Failed to receive a response.", "GetDisplayType");
        return 0;
    }
    return r[0];
}

std::string FpControl::GetVersion() {
    Payload r = adapter_.SendRequest(OP_VERSION, Payload(), kRequestTimeoutMs);
    if (r.Empty()) {
        log_.error("%s() Failed to receive a response.", "GetVersion");
        return std::string();
    }
    const char* begin = reinterpret_cast<const char*>(r.Data());
    const void* nul = std::memchr(begin, 0, r.Length());
    size_t length = nul ? static_cast<size_t>(static_cast<const char*>(nul) - begin) : r.Length();
    return std::string(begin, length);
}

bool FpControl::SetLed(Led_e led, bool on) {
    return adapter_.SendCommand(
        OP_LED, Bytes({static_cast<unsigned char>(led), static_cast<unsigned char>(on ? 1 : 2)}));
}

bool FpControl::SetUnitStatus(UnitStatus_e status) {
    return adapter_.SendCommand(OP_UNIT_STATUS, Bytes({static_cast<unsigned char>(status)}));
}

bool FpControl::ClearDisplay() {
    return adapter_.SendCommand(OP_CLEAR_DISPLAY, Payload());
}

bool FpControl::SetBrightness(unsigned char level) {
    return adapter_.SendCommand(OP_BRIGHTNESS, Bytes({level}));
}

bool FpControl::SetTesselFanState(bool on) {
    return adapter_.SendCommand(OP_FAN_STATE, Bytes({static_cast<unsigned char>(on ? 1 : 0)}));
}

bool FpControl::InvertFont(bool inverted) {
    return adapter_.SendCommand(OP_INVERT_FONT,
                                Bytes({static_cast<unsigned char>(inverted ? 1 : 2)}));
}

bool FpControl::DisplayText(std::string const& text, unsigned char column, unsigned char row,
                            bool inverted) {
    if (inverted)
        InvertFont(true);
    adapter_.SendCommand(OP_COLUMN, Bytes({column}));
    adapter_.SendCommand(OP_ROW, Bytes({row}));
    bool sent = adapter_.SendCommand(
        OP_TEXT, Payload(reinterpret_cast<const unsigned char*>(text.data()), text.size()));
    if (inverted)
        return InvertFont(false);
    return sent;
}

void FpControl::SubscribeToStatusUpdates(unsigned char interval, bool temperature,
                                         std::vector<Fan_e> const& fans,
                                         TemperatureDelegate onTemperature,
                                         FanSpeedDelegate onFanSpeed) {
    if (interval == 0)
        return;
    if (!temperature && fans.empty())
        return;
    UnsubscribeFromStatusUpdates();

    unsigned char mask = 0;
    if (!fans.empty()) {
        {
            KT::CMutexLock lock(listenersMutex_);
            fanListeners_.Append(onFanSpeed);
        }
        for (Fan_e fan : fans) {
            switch (fan) {
                case FAN_1:
                    mask |= 0x02;
                    adapter_.SetResponseHandler(
                        OP_FAN1_SPEED, IFpAdapter::Handler(this, &FpControl::HandleFan1Speed));
                    break;
                case FAN_2:
                    mask |= 0x04;
                    adapter_.SetResponseHandler(
                        OP_FAN2_SPEED, IFpAdapter::Handler(this, &FpControl::HandleFan2Speed));
                    break;
                case FAN_3:
                    mask |= 0x08;
                    adapter_.SetResponseHandler(
                        OP_FAN3_SPEED, IFpAdapter::Handler(this, &FpControl::HandleFan3Speed));
                    break;
                default:
                    break;
            }
        }
    }
    if (temperature) {
        {
            KT::CMutexLock lock(listenersMutex_);
            temperatureListeners_.Append(onTemperature);
        }
        mask |= 0x01;
        adapter_.SetResponseHandler(OP_TEMPERATURE,
                                    IFpAdapter::Handler(this, &FpControl::HandleTemperature));
    }
    adapter_.SendCommand(OP_SUBSCRIBE, Bytes({interval, mask}));
    log_.debug("%s() done", "SubscribeToStatusUpdates");
}

void FpControl::UnsubscribeFromStatusUpdates() {
    adapter_.SendCommand(OP_SUBSCRIBE, Bytes({0x00}));
    ClearListeners(temperatureListeners_);
    ClearListeners(fanListeners_);
    log_.debug("%s() done", "UnsubscribeFromStatusUpdates");
}

template <class List, class... Args>
void FpControl::Deliver(const List& listeners, Args... args) {
    List copy;
    {
        KT::CMutexLock lock(listenersMutex_);
        if (listeners.Empty())
            return;
        copy = listeners;
        ++calls_;
        caller_ = std::this_thread::get_id();
    }
    copy(args...);
    // Notified under the lock: a waiter may destroy this object as soon as it
    // sees the count drop.
    KT::CMutexLock lock(listenersMutex_);
    if (--calls_ == 0) {
        caller_ = std::thread::id();
        idle_.notify_all();
    }
}

template <class List>
void FpControl::ClearListeners(List& listeners) {
    std::unique_lock<KT::CMutex> lock(listenersMutex_);
    listeners.Clear();
    if (calls_ > 0 && caller_ == std::this_thread::get_id())
        return;
    idle_.wait(lock, [this] { return calls_ == 0; });
}

template <class List>
void FpControl::AddListener(List& listeners, const List& listener, unsigned char op,
                            const IFpAdapter::Handler& onMessage) {
    {
        KT::CMutexLock lock(listenersMutex_);
        listeners.InsertFront(listener);
    }
    // Outside our lock, so that it is never held together with the adapter's.
    adapter_.SetResponseHandler(op, onMessage);
}

void FpControl::SetKeyPressHandler(KeyDelegate handler) {
    AddListener(keyListeners_, handler, OP_KEY,
                IFpAdapter::Handler(this, &FpControl::HandleKeyPress));
}

void FpControl::ClearKeyPressHandler() {
    ClearListeners(keyListeners_);
}

void FpControl::SetInitHandler(InitDelegate handler) {
    AddListener(initListeners_, handler, OP_INIT,
                IFpAdapter::Handler(this, &FpControl::HandleFpInit));
}

void FpControl::ClearInitHandler() {
    ClearListeners(initListeners_);
}

void FpControl::HandleTemperature(Payload const& payload) {
    Deliver(temperatureListeners_, static_cast<short>(Be16(payload)));
}

void FpControl::HandleFanSpeed(Fan_e fan, Payload const& payload) {
    Deliver(fanListeners_, fan, Be16(payload));
}

void FpControl::HandleFan1Speed(Payload const& payload) {
    HandleFanSpeed(FAN_1, payload);
}
void FpControl::HandleFan2Speed(Payload const& payload) {
    HandleFanSpeed(FAN_2, payload);
}
void FpControl::HandleFan3Speed(Payload const& payload) {
    HandleFanSpeed(FAN_3, payload);
}

void FpControl::HandleKeyPress(Payload const& payload) {
    Deliver(keyListeners_, static_cast<Key_e>(payload[0]), static_cast<KeyState_e>(payload[1]));
}

void FpControl::HandleFpInit(Payload const&) {
    Deliver(initListeners_);
}

}  // namespace FP
