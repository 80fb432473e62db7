-- Wireshark dissector for Quellpad's captures (quellpad-site --record, the Traffic window's
-- pcapng save): the D and P frames of dome cameras, the D receivers' replies, the
-- switcher's ASCII and the multiplexer's MUX ASCII, in the words of the traffic monitor.
--
-- From a source tree:  tshark -X lua_script:tools/wireshark/quellpad.lua -r capture.pcapng
-- Installed with Quellpad in Wireshark's global Lua plugin folder, it loads by itself.
--
-- Each packet is a run of bytes of one line after four bytes of Quellpad's own: a version
-- (1), the language the line was set to (0 none, 1 D, 2 P, 3 ASCII, 4 MUX ASCII), the side
-- that spoke (0 a controller, 1 the equipment, 2 both, heard on a listen line) and a spare.
-- A packet is cut into commands as the traffic monitor cuts a row: bytes that decode to
-- nothing stay a piece of their own, "not decoded".

local quellpad = Proto("quellpad", "Quellpad serial line")

local LANGUAGES = { [0] = "none", [1] = "D", [2] = "P", [3] = "ASCII", [4] = "MUX ASCII" }
local SIDES = { [0] = "controller", [1] = "equipment", [2] = "listen line" }

local f = quellpad.fields
f.language = ProtoField.uint8("quellpad.language", "Language", base.DEC, LANGUAGES)
f.side = ProtoField.uint8("quellpad.side", "Side", base.DEC, SIDES)
f.meaning = ProtoField.string("quellpad.meaning", "Meaning")
f.command = ProtoField.string("quellpad.command", "Command")
f.address = ProtoField.uint16("quellpad.address", "Address")
f.speed = ProtoField.uint8("quellpad.speed", "Pan speed")
f.tilt_speed = ProtoField.uint8("quellpad.tilt_speed", "Tilt speed")
f.preset = ProtoField.uint32("quellpad.preset", "Preset")
f.number = ProtoField.int64("quellpad.number", "Number")
f.value = ProtoField.uint16("quellpad.value", "Value")
f.check = ProtoField.bool("quellpad.check", "Check good")
f.decoded = ProtoField.bool("quellpad.decoded", "Decoded")

local e_bad_check = ProtoExpert.new("quellpad.check.bad", "Frame with a bad check",
                                    expert.group.CHECKSUM, expert.severity.WARN)
local e_unknown = ProtoExpert.new("quellpad.unknown", "Not decoded",
                                  expert.group.UNDECODED, expert.severity.NOTE)
quellpad.experts = { e_bad_check, e_unknown }

local interface_name = Field.new("frame.interface_name")
local interface_id = Field.new("frame.interface_id")

-- A line's reads as they came, without the keyboard's language: a reply may arrive in
-- several runs. Each side of each line is read as one stream, as the traffic monitor reads
-- a port, and what is held is given up after this long without a byte.
local QUIET_SECONDS = 0.2
local streams = {}
local results = {}
function quellpad.init()
    streams = {}
    results = {}
end

local band, bor, bxor = bit32.band, bit32.bor, bit32.bxor

-- Words -------------------------------------------------------------------------------

local function hex(bytes)
    local out = {}
    for i = 1, #bytes do out[#out + 1] = string.format("%02X", bytes:byte(i)) end
    return table.concat(out, " ")
end

local function printable(bytes)
    return (bytes:gsub("[^\32-\126]", function(c) return string.format("<%02X>", c:byte()) end))
end

local function hundredths(v)
    return string.format("%d.%02d", math.floor(v / 100), v % 100)
end

local function with_number(words, n)
    if n ~= nil and n >= 0 then return words .. " " .. n end
    return words
end

local function on_off(words, on) return words .. (on and " on" or " off") end

local DIRECTIONS = { "pan left", "pan right", "tilt up", "tilt down", "zoom in", "zoom out",
                     "focus near", "focus far", "iris open", "iris close" }

-- One-shot commands of a D or P frame, by their second command byte: how the data bytes
-- are read (n: the second data byte; v: both as one value; col: column and character)
-- and the words.
local EXTENDED = {
    [0x03] = { "n", function(c) return with_number("set preset", c.number) end, preset = true },
    [0x05] = { "n", function(c) return with_number("clear preset", c.number) end, preset = true },
    [0x07] = { "n", function(c) return with_number("go to preset", c.number) end, preset = true },
    [0x09] = { "n", function(c) return with_number("aux", c.number) .. " on" end },
    [0x0B] = { "n", function(c) return with_number("aux", c.number) .. " off" end },
    [0x0F] = { "", function() return "remote reset" end },
    [0x11] = { "n", function(c) return with_number("zone", c.number) .. " start" end },
    [0x13] = { "n", function(c) return with_number("zone", c.number) .. " end" end },
    [0x15] = { "col", function(c)
        return "character '" .. printable(string.char(c.value)) .. "' at column " .. c.number
    end },
    [0x17] = { "", function() return "clear screen" end },
    [0x1B] = { "", function() return "zone scan on" end },
    [0x1D] = { "", function() return "zone scan off" end },
    [0x1F] = { "n", function(c) return with_number("record pattern", c.number) end },
    [0x21] = { "n", function(c) return with_number("end pattern", c.number) end },
    [0x23] = { "n", function(c) return with_number("run pattern", c.number) end },
    [0x25] = { "n", function(c) return with_number("zoom speed", c.number) end },
    [0x27] = { "n", function(c) return with_number("focus speed", c.number) end },
    [0x29] = { "", function() return "reset camera to defaults" end },
    [0x2B] = { "n", function(c) return on_off("auto focus", c.number == 0) end },
    [0x2D] = { "n", function(c) return on_off("auto iris", c.number == 0) end },
    [0x2F] = { "n", function(c) return on_off("auto AGC", c.number == 0) end },
    [0x31] = { "n", function(c) return on_off("backlight compensation", c.number == 2) end },
    [0x33] = { "n", function(c) return on_off("auto white balance", c.number == 2) end },
    [0x37] = { "n", function(c) return with_number("shutter speed code", c.number) end },
    [0x3B] = { "v", function(c) return "red gain " .. c.value end },
    [0x3D] = { "v", function(c) return "blue gain " .. c.value end },
    [0x41] = { "n", function(c) return with_number("iris level", c.number) end },
    [0x43] = { "n", function(c) return with_number("iris peak", c.number) end },
    [0x45] = { "", function() return "query set-up" end },
    [0x49] = { "", function() return "set zero position" end },
    [0x4B] = { "v", function(c) return "set pan " .. hundredths(c.value) end },
    [0x4D] = { "v", function(c) return "set tilt " .. hundredths(c.value) end },
    [0x4F] = { "v", function(c) return "set zoom " .. c.value end },
    [0x51] = { "", function() return "query pan" end },
    [0x53] = { "", function() return "query tilt" end },
    [0x55] = { "", function() return "query zoom" end },
    [0x57] = { "", function() return "prepare download" end },
    [0x5F] = { "v", function(c) return "set magnification " .. hundredths(c.value) end },
    [0x61] = { "", function() return "query magnification" end },
    [0x65] = { "", function() return "echo mode" end },
    [0x69] = { "", function() return "start download" end },
    [0x6B] = { "", function() return "query device type" end },
    [0x6F] = { "", function() return "query diagnostics" end },
}

-- The replies of a D receiver, by their code: what the monitor calls the position, and
-- the receiver's own words.
local REPLIES = {
    [0x59] = { function(v) return "pan position " .. hundredths(v) .. "°" end,
               function(v) return "pan is " .. hundredths(v) end },
    [0x5B] = { function(v) return "tilt position " .. hundredths(v) .. "°" end,
               function(v) return "tilt is " .. hundredths(v) end },
    [0x5D] = { function(v) return "zoom position " .. v end,
               function(v) return "zoom is " .. v end },
    [0x63] = { function(v) return "magnification " .. hundredths(v) end,
               function(v) return "magnification is " .. hundredths(v) end },
}

local function describe_motion(m)
    local parts = {}
    if m.pan ~= 0 then
        parts[#parts + 1] = with_number(m.pan > 0 and "pan right" or "pan left", m.pan_speed)
    end
    if m.tilt ~= 0 then
        parts[#parts + 1] = with_number(m.tilt > 0 and "tilt up" or "tilt down", m.tilt_speed)
    end
    if m.zoom ~= 0 then parts[#parts + 1] = m.zoom > 0 and "zoom in" or "zoom out" end
    if m.focus ~= 0 then parts[#parts + 1] = m.focus > 0 and "focus far" or "focus near" end
    if m.iris ~= 0 then parts[#parts + 1] = m.iris > 0 and "iris open" or "iris close" end
    if #parts == 0 then return "stop" end
    return table.concat(parts, ", ")
end

-- Frames --------------------------------------------------------------------------------

-- A whole, checked D ("D") or P ("P") frame as a command.
local function decode_frame(language, frame)
    local c = { language = language, bytes = frame, kind = "unknown", number = -1, value = 0 }
    c.address = frame:byte(2) + (language == "P" and 1 or 0)
    local c1, c2, d1, d2 = frame:byte(3), frame:byte(4), frame:byte(5), frame:byte(6)
    c.words = function() return "unknown " .. hex(frame) end
    if band(c2, 1) ~= 0 then
        local e = EXTENDED[c2]
        if e == nil then return c end
        c.kind = "extended"
        if e[1] == "n" then c.number = d2
        elseif e[1] == "v" then c.value = d1 * 256 + d2
        elseif e[1] == "col" then c.number, c.value = d1, d2 end
        c.preset = e.preset and c.number or nil
        c.words = function() return e[2](c) end
        return c
    end
    local d = language == "D"
    if band(c1, d and 0xF8 or 0xF0) ~= 0 or band(c2, d and 0x00 or 0x80) ~= 0 then return c end
    local function axis(plus, minus)
        if plus == minus then return 0 end
        return plus and 1 or -1
    end
    local function bit(b, mask) return band(b, mask) ~= 0 end
    local m = {}
    m.pan = axis(bit(c2, 0x02), bit(c2, 0x04))
    m.tilt = axis(bit(c2, 0x08), bit(c2, 0x10))
    m.zoom = axis(bit(c2, 0x20), bit(c2, 0x40))
    if d then
        m.focus = axis(bit(c2, 0x80), bit(c1, 0x01))
        m.iris = axis(bit(c1, 0x02), bit(c1, 0x04))
    else
        m.focus = axis(bit(c1, 0x01), bit(c1, 0x02))
        m.iris = axis(bit(c1, 0x04), bit(c1, 0x08))
    end
    m.pan_speed = m.pan ~= 0 and d1 or 0
    m.tilt_speed = m.tilt ~= 0 and d2 or 0
    c.kind = "motion"
    c.motion = m
    c.words = function() return describe_motion(m) end
    return c
end

-- Drops the frame's start byte and keeps what follows from the next start byte on.
local function hunt_from(frame, start)
    local next = frame:find(string.char(start), 2, true)
    return next and frame:sub(next) or ""
end

local function frame_decoder(language)
    local start, size = 0xFF, 7
    if language == "P" then start, size = 0xA0, 8 end
    local d = { frame = "" }
    function d.feed(byte, out)
        if #d.frame == 0 and byte ~= start then return end
        d.frame = d.frame .. string.char(byte)
        if #d.frame < size then return end
        local good
        if language == "D" then
            local sum = 0
            for i = 2, 6 do sum = sum + d.frame:byte(i) end
            good = sum % 256 == d.frame:byte(7)
        else
            local check = 0
            for i = 1, 7 do check = bxor(check, d.frame:byte(i)) end
            good = d.frame:byte(7) == 0xAF and check == d.frame:byte(8)
        end
        if good then
            out[#out + 1] = decode_frame(language, d.frame)
            d.frame = ""
        else
            d.frame = hunt_from(d.frame, start)
        end
    end
    function d.frame_ended() end
    return d
end

local function reply_decoder()
    local d = { frame = "" }
    local function emit(out, frame, code, value)
        local c = { language = "D", bytes = frame, address = frame:byte(2), value = value,
                    number = -1, kind = "reply" }
        local r = REPLIES[code]
        if r then
            c.position = r[1](value)
            c.words = function() return r[2](value) end
        else
            c.kind = "general reply"
            c.words = function() return "acknowledged" end
        end
        out[#out + 1] = c
    end
    function d.feed(byte, out)
        local again = { byte }
        while #again > 0 do
            local b = table.remove(again, 1)
            local function lose()
                local rest = d.frame:sub(2)
                for i = #rest, 1, -1 do table.insert(again, 1, rest:byte(i)) end
                d.frame = ""
            end
            if not (#d.frame == 0 and b ~= 0xFF) then
                d.frame = d.frame .. string.char(b)
                local size = #d.frame
                if size == 3 and d.frame:byte(3) ~= 0 then
                    lose()
                elseif size == 4 and REPLIES[d.frame:byte(4)] == nil then
                    if d.frame:byte(4) == d.frame:byte(2) then
                        emit(out, d.frame, nil, 0)
                        d.frame = ""
                    else
                        lose()
                    end
                elseif size == 7 then
                    local f = d.frame
                    local sum = (f:byte(2) + f:byte(4) + f:byte(5) + f:byte(6)) % 256
                    if sum == f:byte(7) then
                        emit(out, f, f:byte(4), f:byte(5) * 256 + f:byte(6))
                        d.frame = ""
                    elseif f:byte(4) == f:byte(2) then
                        local rest = f:sub(5)
                        for i = #rest, 1, -1 do table.insert(again, 1, rest:byte(i)) end
                        emit(out, f:sub(1, 4), nil, 0)
                        d.frame = ""
                    else
                        lose()
                    end
                end
            end
        end
    end
    function d.frame_ended() end
    return d
end

-- Texts -----------------------------------------------------------------------------------

-- mnemonic, language ("a" switcher, "m" multiplexer), number (none, optional, required),
-- words, direction, free text (bang: up to "!", time: a time text).
local A, M = "a", "m"
local WORDS = {}
local function word(mnemonic, owner, number, words, extra)
    extra = extra or {}
    WORDS[mnemonic] = { owner = owner, number = number, words = words,
                        direction = extra.direction, stop = extra.stop, free = extra.free }
end
local function numbered(w) return function(c) return with_number(w, c.number) end end
local function plain(w) return function() return w end end
word("Ma", A, "required", numbered("monitor"))
word("#a", A, "required", numbered("camera"))
word("+a", A, "none", plain("next camera"))
word("-a", A, "none", plain("previous camera"))
word("ia", A, "optional", function(c)
    return c.number >= 0 and with_number("alarm", c.number) .. " (forward)" or "next alarm"
end)
word("da", A, "optional", function(c)
    return c.number >= 0 and with_number("alarm", c.number) .. " (back)" or "previous alarm"
end)
word("Ea", A, "required", numbered("trigger alarm"))
word("Ia", A, "optional", function(c)
    return c.number > 0 and with_number("reset alarm", c.number) or "reset all alarms"
end)
word("Aa", A, "required", function(c) return with_number("aux", c.number) .. " on" end)
word("Ba", A, "required", function(c) return with_number("aux", c.number) .. " off" end)
word("xa", A, "required", function(c) return with_number("GPI", c.number) .. " on" end)
word("~xa", A, "required", function(c) return with_number("GPI", c.number) .. " off" end)
word("Sa", A, "required", numbered("start macro"))
word("Ha", A, "required", numbered("halt macro"))
word("qa", A, "required", numbered("start sequence"))
word("ea", A, "required", numbered("halt sequence"))
word("ta", A, "required", numbered("start tour"))
word("ra", A, "required", numbered("halt tour"))
word("\\a", A, "required", numbered("go to preset"), { preset = true })
word("^a", A, "required", numbered("set preset"), { preset = true })
word("/a", A, "required", numbered("record pattern"))
word("na", A, "required", numbered("end pattern"))
word("pa", A, "required", numbered("run pattern"))
word("Ga", A, "none", plain("lock camera"))
word("~Ga", A, "none", plain("unlock camera"))
word("oa", A, "none", plain("override camera lock"))
word("la", A, "none", function(c) return 'label "' .. printable(c.text) .. '"' end,
     { free = "bang" })
word("Ya", A, "required", function(c)
    return with_number("camera", c.number) .. ' title "' .. printable(c.text) .. '"'
end, { free = "bang" })
word("Za", A, "none", function(c) return "time " .. printable(c.text) end, { free = "time" })
word("sa", A, "none", plain("stop all"))
for i, m in ipairs({ "L", "R", "U", "D", "T", "W", "N", "F", "O", "C" }) do
    local speed = i <= 4 and "required" or "none"
    word(m .. "a", A, speed, numbered(DIRECTIONS[i]), { direction = i })
    word("~" .. m .. "a", A, "none", plain(DIRECTIONS[i] .. " off"), { direction = i, stop = true })
end
for i, m in ipairs({ "L", "R", "U", "D" }) do
    word("d" .. m .. "m", M, "none", numbered(DIRECTIONS[i]), { direction = i })
    word("~d" .. m .. "m", M, "none", plain(DIRECTIONS[i] .. " off"), { direction = i, stop = true })
end
word("ym", M, "none", plain("digital zoom"))
word("im", M, "none", plain("picture in picture"))
word("um", M, "none", plain("quad"))
word("om", M, "none", plain("nano"))
word("xm", M, "none", plain("hex"))
word("#m", M, "required", function(c) return with_number("camera", c.number) .. " full screen" end)
word("<m", M, "none", plain("VCR eject"))
word("rm", M, "none", plain("VCR record"))
word("em", M, "none", plain("VCR pause"))
word(">>m", M, "none", plain("VCR fast forward"))
word("<<m", M, "none", plain("VCR rewind"))
word("sm", M, "none", plain("VCR stop"))
word(">m", M, "none", plain("VCR play"))

local MAX_TEXT, MAX_DIGITS = 40, 9

local function is_time_text(text)
    return text:match("^%d%d/%d%d/%d%d/%d%d:%d%d:%d%d$") ~= nil
end

local function ascii_decoder(language)
    local mine = language == "ASCII" and A or M
    local d = { text = "", pending = "", pending_bytes = "", skipping = false }
    local function drop()
        d.skipping = true
        d.text, d.pending, d.pending_bytes = "", "", ""
    end
    local function finish(out)
        local owner = d.text:sub(-1) == "a" and A or M
        local c = { language = language, number = -1, kind = "unknown" }
        if #d.pending > 0 then
            local mnemonic = d.pending:match("^[%d ]*(.*)$")
            local w = WORDS[mnemonic]
            c.bytes = d.pending_bytes .. d.text
            local body = d.text:sub(1, -2)
            local good
            if w.free == "time" then good = is_time_text(body)
            else good = #body > 0 and body:sub(-1) == "!" end
            if good then
                if w.free == "bang" then body = body:sub(1, -2) end
                c.kind = "text"
                c.text = body
                local digits = d.pending:match("%d+")
                if digits then c.number = tonumber(digits) end
                c.words = function() return w.words(c) end
            end
            d.pending, d.pending_bytes, d.text = "", "", ""
            if language == "ASCII" then out[#out + 1] = c end
            return
        end
        c.bytes = d.text
        local body = d.text:gsub("^ +", "")
        local digits = body:match("^%d*")
        local mnemonic = body:sub(#digits + 1)
        if #mnemonic < 2 then
            d.text = ""
            return
        end
        local w = WORDS[mnemonic]
        local known = w ~= nil and #digits <= MAX_DIGITS and
                      not (w.number == "none" and #digits > 0) and
                      not (w.number == "required" and #digits == 0)
        if known and w.free then
            d.pending, d.pending_bytes, d.text = d.text, d.text, ""
            return
        end
        if known and #digits > 0 then c.number = tonumber(digits) end
        d.text = ""
        if owner ~= mine then return end
        if known then
            c.kind = w.stop and "stop" or (w.direction and "direction" or "text")
            c.word = w
            c.preset = WORDS[mnemonic].preset and c.number or nil
            c.words = function() return w.words(c) end
        else
            c.number = -1
        end
        out[#out + 1] = c
    end
    function d.feed(byte, out)
        if byte < 0x20 or byte >= 0x7F then
            if #d.text > 0 or #d.pending > 0 then
                drop()
                d.skipping = false
            end
            return
        end
        local ch = string.char(byte)
        if d.skipping then
            d.skipping = ch ~= "a" and ch ~= "m"
            return
        end
        if #d.text == 0 and #d.pending == 0 and ch == " " then
            d.text = d.text .. ch
            return
        end
        d.text = d.text .. ch
        local ended = ch == "a" or (ch == "m" and #d.pending == 0)
        if ended then finish(out)
        elseif #d.text > MAX_TEXT then drop() end
    end
    function d.frame_ended()
        d.skipping = false
        d.text, d.pending, d.pending_bytes = "", "", ""
    end
    return d
end

-- Splitting a packet --------------------------------------------------------------------

-- The decoders of a language on one side: the controller's commands or the equipment's
-- answers; with no language, everything the site's equipment reads.
local function decoders_for(language, answers)
    if language == "D" then return { answers and reply_decoder() or frame_decoder("D") }, {} end
    if language == "P" then return { frame_decoder("P") }, {} end
    if language == "ASCII" or language == "MUX ASCII" then
        return { ascii_decoder("ASCII"), ascii_decoder("MUX ASCII") },
               { frame_decoder("D"), frame_decoder("P") }
    end
    if answers then return { reply_decoder(), ascii_decoder("ASCII"), ascii_decoder("MUX ASCII") }, {} end
    return { frame_decoder("D"), frame_decoder("P"), ascii_decoder("ASCII"),
             ascii_decoder("MUX ASCII") }, { frame_decoder("D"), frame_decoder("P") }
end

local MOST_HELD = 256

-- Cuts a stream of bytes into pieces, { bytes, command or nil, offset in the stream },
-- every byte in one, as the traffic monitor cuts what a port reads.
local function new_splitter(language, answers)
    local decoders, frames = decoders_for(language, answers)
    local sp = { held = "", held_at = 0, fed = 0 }
    local pieces
    local function take(c)
        local at = nil
        local from = 1
        while true do
            local found = sp.held:find(c.bytes, from, true)
            if not found then break end
            at, from = found, found + 1
        end
        if at == nil then
            pieces[#pieces + 1] = { bytes = c.bytes, command = c, offset = sp.held_at }
            return
        end
        if at > 1 then
            pieces[#pieces + 1] = { bytes = sp.held:sub(1, at - 1), offset = sp.held_at }
        end
        pieces[#pieces + 1] = { bytes = c.bytes, command = c, offset = sp.held_at + at - 1 }
        sp.held_at = sp.held_at + at - 1 + #c.bytes
        sp.held = sp.held:sub(at + #c.bytes)
    end
    function sp.feed(bytes)
        pieces = {}
        for i = 1, #bytes do
            local byte = bytes:byte(i)
            sp.held = sp.held .. string.char(byte)
            sp.fed = sp.fed + 1
            local frame_ended = false
            for _, fd in ipairs(frames) do
                local out = {}
                fd.feed(byte, out)
                frame_ended = frame_ended or #out > 0
            end
            for _, d in ipairs(decoders) do
                local out = {}
                d.feed(byte, out)
                for _, c in ipairs(out) do take(c) end
                if frame_ended then d.frame_ended() end
            end
            if #sp.held > MOST_HELD then
                local noise = #sp.held - MOST_HELD / 2
                pieces[#pieces + 1] = { bytes = sp.held:sub(1, noise), offset = sp.held_at }
                sp.held = sp.held:sub(noise + 1)
                sp.held_at = sp.held_at + noise
            end
        end
        return pieces
    end
    -- Gives up on what is held as bytes that decoded to nothing, and starts afresh.
    function sp.flush()
        local out = {}
        if #sp.held > 0 then out[1] = { bytes = sp.held, offset = sp.held_at } end
        sp.held_at = sp.held_at + #sp.held
        sp.held = ""
        decoders, frames = decoders_for(language, answers)
        return out
    end
    return sp
end

-- The pieces of one run of bytes on its own.
local function split(bytes, language, answers)
    local sp = new_splitter(language, answers)
    local pieces = sp.feed(bytes)
    for _, p in ipairs(sp.flush()) do pieces[#pieces + 1] = p end
    return pieces
end

-- The equipment's words for a command heard (sent) or an answer it gave.
local function equipment_meaning(sent, c)
    if c.language == "D" or c.language == "P" then
        local camera = "camera " .. c.address
        if sent then return camera .. ": " .. c.words() end
        return camera .. " ← " .. (c.position or c.words())
    end
    local device = c.language == "ASCII" and "switcher" or "multiplexer"
    return device .. (sent and ": " or " ← ") .. c.words()
end

-- A piece in the operator's words, from the recording side of the port.
local function meaning(port, sent, piece)
    local c = piece.command
    if c == nil then return "not decoded: " .. hex(piece.bytes) end
    if c.words == nil then
        c.words = function()
            if c.language == "D" or c.language == "P" then return "unknown " .. hex(c.bytes) end
            return 'unknown "' .. printable(c.bytes) .. '"'
        end
    end
    local camera = c.language == "D" or c.language == "P"
    if port == "Listen" and camera then
        if c.language == "D" and c.kind == "unknown" then
            local answers = {}
            local r = reply_decoder()
            for i = 1, #c.bytes do r.feed(c.bytes:byte(i), answers) end
            if #answers == 1 and answers[1].position then
                return port .. " ← camera " .. c.address .. ": " .. answers[1].position
            end
        end
        return port .. " → " .. equipment_meaning(true, c)
    end
    if sent and camera and port ~= nil then return port .. " → " .. equipment_meaning(true, c) end
    return equipment_meaning(sent, c)
end

-- The dissector ----------------------------------------------------------------------------

local LANGUAGE_NAMES = { [1] = "D", [2] = "P", [3] = "ASCII", [4] = "MUX ASCII" }

function quellpad.dissector(tvb, pinfo, root)
    if tvb:len() < 4 or tvb(0, 1):uint() ~= 1 then return 0 end
    pinfo.cols.protocol = "Quellpad"
    local language = LANGUAGE_NAMES[tvb(1, 1):uint()]
    local side = tvb(2, 1):uint()
    local name = interface_name()
    local port = name and tostring(name.value) or nil
    if port ~= "COM 1" and port ~= "COM 2" and port ~= "Listen" then port = nil end
    local tree = root:add(quellpad, tvb(), "Quellpad " .. (language or "line"))
    tree:add(f.language, tvb(1, 1))
    tree:add(f.side, tvb(2, 1))
    if tvb:len() == 4 then
        pinfo.cols.info = ""
        return tvb:len()
    end
    local bytes = tvb(4):raw()
    -- A listen line hears a keyboard's commands, and reads them as the controller's.
    local answers = side == 1
    local sent = side == 0
    local pieces, base = nil, 0
    if language ~= nil then
        -- The traffic monitor's rows: each a whole write or a whole reply.
        pieces = split(bytes, language, answers)
    else
        local r = results[pinfo.number]
        if r == nil then
            local id = interface_id()
            local key = (id and tostring(id.value) or "?") .. "/" .. side
            local stream = streams[key]
            if stream == nil then
                stream = { sp = new_splitter(nil, answers), last = 0 }
                streams[key] = stream
            end
            local now = pinfo.abs_ts
            r = { pieces = {}, base = stream.sp.fed }
            if #stream.sp.held > 0 and now - stream.last >= QUIET_SECONDS then
                r.pieces = stream.sp.flush()
            end
            for _, p in ipairs(stream.sp.feed(bytes)) do r.pieces[#r.pieces + 1] = p end
            stream.last = now
            results[pinfo.number] = r
        end
        pieces, base = r.pieces, r.base
    end
    local words = {}
    for _, piece in ipairs(pieces) do
        -- A piece begun in an earlier packet is shown over its part in this one.
        local from = math.max(piece.offset - base, 0)
        local to = math.min(piece.offset - base + #piece.bytes, #bytes)
        local range = to > from and tvb(4 + from, to - from) or tvb(4)
        local text = meaning(port, sent, piece)
        words[#words + 1] = text
        local item = tree:add(f.meaning, range, text)
        local c = piece.command
        item:add(f.decoded, range, c ~= nil and c.kind ~= "unknown")
        if c == nil then
            item:add_proto_expert_info(e_unknown)
            -- A frame whose check fails is shown as such.
            local first = piece.bytes:byte(1)
            if (first == 0xFF and #piece.bytes == 7) or (first == 0xA0 and #piece.bytes == 8) then
                item:add(f.check, range, false)
                item:add_proto_expert_info(e_bad_check)
            end
        else
            item:add(f.command, range, c.words())
            if c.address then item:add(f.address, range, c.address) end
            if c.language == "D" or c.language == "P" then item:add(f.check, range, true) end
            if c.motion then
                if c.motion.pan ~= 0 then item:add(f.speed, range, c.motion.pan_speed) end
                if c.motion.tilt ~= 0 then item:add(f.tilt_speed, range, c.motion.tilt_speed) end
            end
            if c.preset then item:add(f.preset, range, c.preset) end
            if c.number and c.number >= 0 then item:add(f.number, range, Int64(c.number)) end
            if c.value and c.value ~= 0 then item:add(f.value, range, c.value) end
        end
    end
    -- The rows of what the keyboard wrote are one per write, their pieces joined; a run
    -- that ends nothing yet is the start of what follows.
    pinfo.cols.info = #words > 0 and table.concat(words, "; ") or "…"
    return tvb:len()
end

DissectorTable.get("wtap_encap"):add(wtap.USER0, quellpad)
