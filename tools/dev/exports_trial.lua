-- Prints each subtitle that mpv shows: the second, a tab, its lines.
mp.observe_property("sub-text", "string", function(_, text)
    if text and text ~= "" then
        io.write(string.format("%.2f\t%s\n", mp.get_property_number("time-pos", 0), (text:gsub("\n", "|"))))
    end
end)
