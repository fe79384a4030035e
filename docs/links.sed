# The papers link to each other and to the sources as they lie in the tree; the pages of the reference
# lie all in one folder, beside which docs.sh and the package put examples and docs.
s#(!\[[^]]*\]\()(\.\./)*(docs/)?images/#\1#g
s#\]\((\.\./)*(docs/)?images/#](../docs/images/#g
s#\]\((\.\./)+([A-Z]+\.md)#](\2#g
s#\]\(\.\./([a-z]+\.md)#](docs/\1#g
s#\]\((\.\./)*examples/#](../examples/#g
s#\]\(samples/#](../docs/guide/samples/#g
# Doxygen follows links to pages, not to their headings.
s/\.md#[a-z-]+\)/.md)/g
