-- Shows the frames of a loop drive bus in captures of a serial line (link type RTAC serial), as the
-- sniffer saves them. Put it into Wireshark's folder of personal Lua plugins (Help, About
-- Wireshark, Folders), or start with: wireshark -X lua_script:ldb.lua capture.pcapng
--
-- A frame is SOH, a body of digits, two check digits, EOT; or a single ACK or NAK. A request names
-- who is asked; an answer does not, so it is read as the answer to the request before it.

local ldb = Proto("ldb", "Loop drive bus")

local field = ldb.fields
field.frame = ProtoField.bytes("ldb.frame", "Frame")
field.body = ProtoField.string("ldb.body", "Body")
field.to = ProtoField.string("ldb.to", "To LDB")
field.from = ProtoField.string("ldb.from", "From LDB")
field.command = ProtoField.string("ldb.command", "Command")
field.data = ProtoField.string("ldb.data", "Data")
field.check = ProtoField.string("ldb.check", "Check digits")
field.damaged = ProtoField.bool("ldb.damaged", "Damaged")
field.stray = ProtoField.bytes("ldb.stray", "Stray bytes")
field.single = ProtoField.string("ldb.single", "Answer")
field.name = ProtoField.string("ldb.name", "Name")
field.firmware = ProtoField.string("ldb.firmware", "Firmware id")
field.mode = ProtoField.string("ldb.status.mode", "Mode")
field.loop = ProtoField.string("ldb.status.loop", "Loop")
field.earth = ProtoField.string("ldb.status.earth", "Earth")
field.amplifier = ProtoField.string("ldb.status.amplifier", "Amplifier")
field.primary_voltage = ProtoField.string("ldb.status.primary.voltage", "Primary voltage")
field.primary_current = ProtoField.string("ldb.status.primary.current", "Primary current")
field.secondary_voltage = ProtoField.string("ldb.status.secondary.voltage", "Secondary voltage")
field.secondary_current = ProtoField.string("ldb.status.secondary.current", "Secondary current")

local damage = ProtoExpert.new("ldb.expert.damaged", "Damaged frame", expert.group.CHECKSUM,
                               expert.severity.ERROR)
local stray = ProtoExpert.new("ldb.expert.stray", "Bytes of no frame", expert.group.MALFORMED,
                              expert.severity.WARN)
local gap = ProtoExpert.new("ldb.expert.gap", "Exchanges before this are missing",
                            expert.group.SEQUENCE, expert.severity.WARN)
ldb.experts = {damage, stray, gap}

local SOH, EOT, ACK, NAK = 0x01, 0x04, 0x06, 0x15
local SENT, RECEIVED, LOST = 0x01, 0x02, 0x05
local HEADER = 12 -- of the link type: seconds, microseconds, event, lines, two reserved

-- The check digits -------------------------------------------------------------------------------

-- Two numbers of eight bits, bit by bit: which library does it differs between versions of Lua.
local function xor(a, b)
    local result, bit = 0, 1
    while a > 0 or b > 0 do
        if a % 2 ~= b % 2 then result = result + bit end
        a, b, bit = math.floor(a / 2), math.floor(b / 2), bit * 2
    end
    return result
end

local crc_table = {}
for i = 0, 255 do
    local value = i
    for _ = 1, 8 do
        local drops_one = value % 2 == 1
        value = math.floor(value / 2)
        if drops_one then value = xor(value, 0x8C) end
    end
    crc_table[i] = value
end

-- The boards' firmware keeps the old value in every step: this is not the usual CRC-8.
local function check_digits(body)
    local crc = 0xFF
    for i = 1, #body do crc = xor(crc, crc_table[xor(crc, body:byte(i))]) end
    return string.format("%02X", crc)
end

-- Commands ---------------------------------------------------------------------------------------

local parameters = {
    ["01"] = "settings", ["02"] = "name", ["03"] = "number of FIMs", ["14"] = "flags",
    ["16"] = "audio mute", ["17"] = "open detection delay"
}
local actions = {["03"] = "status", ["04"] = "firmware id", ["06"] = "store settings"}
local controls = {
    ["00"] = "FIM reset", ["01"] = "LDB reset", ["02"] = "factory reset", ["03"] = "service mode"
}

-- What a request's body asks for: text, and what its answer is.
local function command_of(body)
    local code, index, data = body:sub(5, 8), body:sub(9, 10), body:sub(11)
    if body:sub(5) == "70" then return "poll", "poll" end
    if code == "7372" then
        return "read " .. (parameters[index] or ("parameter " .. index)), "read " .. index, data
    end
    if code == "7363" then
        return "write " .. (parameters[index] or ("parameter " .. index)), "write", data
    end
    if code == "7378" and index == "00" then
        return controls[data:sub(1, 2)] or ("control " .. data), "action", data
    end
    if code == "7378" then
        return actions[index] or ("action " .. index), "action " .. index, data
    end
    return "unknown", "unknown", body:sub(5)
end

-- Status -----------------------------------------------------------------------------------------

local modes = {
    [0] = "Booting", [10] = "Quiescent", [20] = "Measuring", [30] = "Service mode",
    [40] = "Fim reset executing", [41] = "Fim reset failed", [42] = "Fim reset done",
    [50] = "Factory reset executing", [51] = "Factory reset failed", [52] = "Factory reset done",
    [253] = "Check Settings", [254] = "Fault", [255] = "Disconnected"
}
local loops = {
    [0] = "Ok", [1] = "Open", [2] = "Open(memory)", [4] = "Short",
    [6] = "Short + Open(memory)", [8] = "Short(memory)", [9] = "Short(memory) + Open",
    [10] = "Short(memory) + Open(memory)", [16] = "DC Leakage", [17] = "Open + DC Leakage",
    [18] = "Open(memory) + DC Leakage", [20] = "Short + DC Leakage",
    [22] = "Short + Open(memory) + DC Leakage", [24] = "Short(memory) + DC Leakage",
    [25] = "Short(memory) + Open + DC Leakage",
    [26] = "Short(memory) + Open(memory) + DC Leakage", [32] = "DC Leakage(memory)",
    [33] = "Open + DC Leakage(memory)", [34] = "Open(memory) + DC Leakage(memory)",
    [36] = "Short + DC Leakage(memory)", [38] = "Short + Open(memory) + DC Leakage(memory)",
    [40] = "Short(memory) + DC Leakage(memory)",
    [41] = "Short(memory)+ Open + DC Leakage(memory)",
    [42] = "Short(memory) + Open(memory) + DC Leakage(memory)"
}
local earths = {
    [0] = "Ok", [1] = "Open", [2] = "Open(memory)", [4] = "Leakage", [5] = "Leakage + Open",
    [6] = "Leakage + Open(memory)", [8] = "Leakage(memory)", [9] = "Leakage(memory) + Open",
    [10] = "Leakage(memory) + Open(memory)"
}
local amplifiers = {
    [0] = "Ok", [1] = "Polling", [2] = "Disconnected", [3] = "Reconnected", [254] = "Not Supported"
}
local STATUS_LENGTH = 50

-- Positions count from 0, as in a description of the bus.
local function number(body, position, digits)
    return tonumber(body:sub(position + 1, position + digits), 16) or 0
end

local function swapped_word(body, position)
    return number(body, position, 2) + 256 * number(body, position + 2, 2)
end

local function text_of(texts, code) return texts[code] or "Unknown" end

local function loop_of(body)
    local open, leakage, short = number(body, 12, 2), number(body, 14, 1), number(body, 15, 1)
    return open % 4 + 4 * (short % 4) + 16 * (leakage % 8)
end

-- What is present and remembered at once reads as if it were neither.
local function earth_of(body)
    local leakage, open = number(body, 16, 2) % 8, number(body, 18, 2) % 4
    if open == 3 then open = 0 end
    if leakage % 4 == 3 then leakage = leakage - 3 end
    return open + 4 * leakage
end

local function port_of(body, short, voltage, current)
    local shorts = {[1] = "Short", [2] = "Short(memory)"}
    local text = shorts[number(body, short, 2)]
    if text then return text, text end
    local raw = swapped_word(body, current)
    if raw >= 32768 then raw = raw - 65536 end
    return string.format("%.1f V", swapped_word(body, voltage) / 1000),
           string.format("%.1f mA", raw / 100)
end

local function add_status(tree, range, body)
    local at = function(position, digits) return range(position, digits) end
    local mode = text_of(modes, number(body, 10, 2))
    local loop, earth = text_of(loops, loop_of(body)), text_of(earths, earth_of(body))
    tree:add(field.mode, at(10, 2), mode)
    tree:add(field.loop, at(12, 4), loop)
    tree:add(field.earth, at(16, 4), earth)
    tree:add(field.amplifier, at(24, 2), text_of(amplifiers, number(body, 24, 2)))
    local volts, milliamperes = port_of(body, 20, 26, 42)
    tree:add(field.primary_voltage, at(26, 4), volts)
    tree:add(field.primary_current, at(42, 4), milliamperes)
    volts, milliamperes = port_of(body, 22, 34, 46)
    tree:add(field.secondary_voltage, at(34, 4), volts)
    tree:add(field.secondary_current, at(46, 4), milliamperes)
    return string.format("%s, loop %s, earth %s", mode, loop, earth)
end

-- Digit pairs as the text that they stand for, up to its first zero byte.
local function text_from(pairs)
    local text = pairs:gsub("%x%x", function(pair) return string.char(tonumber(pair, 16)) end)
    return (text:match("^[^%z]*") or ""):gsub("%s+$", "")
end

-- Frames -----------------------------------------------------------------------------------------

-- The last request before each packet, kept by number: packets are shown in any order.
local asked, last_request = {}, nil

function ldb.init() asked, last_request = {}, nil end

local function add_request(tree, range, body)
    local to = body:sub(3, 4)
    local command, answer, data = command_of(body)
    tree:add(field.to, range(2, 2), to)
    tree:add(field.command, range(4), command)
    if data and data ~= "" then tree:add(field.data, range(#body - #data), data) end
    return string.format("%s of %s", command, to), {to = to, answer = answer}
end

local function add_answer(tree, range, body, request)
    if not request then return "answer" end
    tree:add(field.from, range, request.to):set_generated()
    local text = "answer"
    if request.answer == "action 03" and #body == STATUS_LENGTH then
        text = add_status(tree, range, body)
    elseif request.answer == "read 02" then
        text = text_from(body)
        tree:add(field.name, range, text)
    elseif request.answer == "action 04" then
        text = text_from(body)
        tree:add(field.firmware, range, text)
    end
    return string.format("%s: %s", request.to, text)
end

local function add_damaged(tree, info)
    tree:add(field.damaged, true)
    tree:add_proto_expert_info(damage)
    table.insert(info, "DAMAGED")
end

-- One frame from `first` (at its SOH) to `last` (at its EOT).
local function add_frame(range, tree, event, number, info)
    local branch = tree:add(field.frame, range)
    if range:len() < 4 then return add_damaged(branch, info) end
    local body_range = range(1, range:len() - 4)
    local body = body_range:string()
    local digits = range(range:len() - 3, 2)
    branch:add(field.body, body_range)
    local expected = check_digits(body)
    local check = branch:add(field.check, digits)
    if digits:string() ~= expected then
        check:append_text(" (should be " .. expected .. ")")
        return add_damaged(branch, info)
    end
    if event == SENT then
        local text, request = add_request(branch, body_range, body)
        last_request = request
        table.insert(info, text)
    else
        table.insert(info, add_answer(branch, body_range, body, asked[number]))
    end
end

local function add_stray(range, tree, info)
    local item = tree:add(field.stray, range)
    item:add_proto_expert_info(stray)
    table.insert(info, string.format("%d stray", range:len()))
end

local function add_single(range, tree, request, info)
    local text = range:uint() == ACK and "ACK" or "NAK"
    tree:add(field.single, range, text)
    if request then tree:add(field.from, range, request.to):set_generated() end
    table.insert(info, request and string.format("%s: %s", request.to, text) or text)
end

local function add_bytes(buffer, tree, event, number, info)
    local bytes = buffer:bytes()
    local position, length = 0, buffer:len()
    while position < length do
        local byte = bytes:get_index(position)
        if event == RECEIVED and (byte == ACK or byte == NAK) then
            add_single(buffer(position, 1), tree, asked[number], info)
            position = position + 1
        elseif byte == SOH then
            -- To its end; another begin before that cuts it off.
            local last = position + 1
            while last < length and bytes:get_index(last) ~= EOT and bytes:get_index(last) ~= SOH do
                last = last + 1
            end
            if last < length and bytes:get_index(last) == EOT then
                add_frame(buffer(position, last - position + 1), tree, event, number, info)
                position = last + 1
            else
                add_damaged(tree:add(field.frame, buffer(position, last - position)), info)
                position = last
            end
        else
            local last = position
            while last < length and bytes:get_index(last) ~= SOH and
                not (event == RECEIVED and
                    (bytes:get_index(last) == ACK or bytes:get_index(last) == NAK)) do
                last = last + 1
            end
            add_stray(buffer(position, last - position), tree, info)
            position = last
        end
    end
end

function ldb.dissector(buffer, pinfo, root)
    if buffer:len() < HEADER then return 0 end
    pinfo.cols.protocol = "LDB"
    local event = buffer(8, 1):uint()
    local tree = root:add(ldb, buffer())
    local info = {}
    if not pinfo.visited then asked[pinfo.number] = last_request end
    if event == LOST then
        tree:add_proto_expert_info(gap)
        table.insert(info, "exchanges before this are missing")
    elseif buffer:len() > HEADER then
        add_bytes(buffer(HEADER):tvb(), tree, event, pinfo.number, info)
    end
    pinfo.cols.src = event == SENT and "program" or "bus"
    pinfo.cols.dst = event == SENT and "bus" or "program"
    pinfo.cols.info = table.concat(info, ", ")
    return buffer:len()
end

DissectorTable.get("wtap_encap"):add(wtap.RTAC_SERIAL, ldb)
