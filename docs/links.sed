# For the pages that script/docs makes: links to headers go to their pages, links to other files of
# the repository, which lie outside of the pages, become plain text.
s#\]\((\.\./)*(kit/)?include/(gfx/[a-z_/]+\.h)\)#](@ref \3)#g
s#(^|[^!])\[([^]]*)\]\(([^):]*/)?([A-Za-z_-]+|[A-Za-z_]+\.(cpp|txt|js|py|svg))\)#\1\2#g
